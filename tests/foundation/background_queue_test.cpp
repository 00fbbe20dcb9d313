#include "foundation/dispatch_queue.h"
#include "tests/support/call_faults.h"

#include <gtest/gtest.h>

#include <sys/syscall.h>

#include <cerrno>
#include <chrono>
#include <future>
#include <memory>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace tarvolt {
namespace {

using namespace std::chrono_literals;

/// A task, even one of the previous test, runs on for a moment after what a test waits for.
void waitUntilNoTaskRuns() {
    while (runningBackgroundTasks() != 0) {
        std::this_thread::yield();
    }
}

TEST(BackgroundQueue, RunsATaskOnAnotherThread) {
    const auto queue = makeBackgroundQueue();
    std::promise<std::thread::id> ran;
    queue->async([&] { ran.set_value(std::this_thread::get_id()); });
    EXPECT_NE(ran.get_future().get(), std::this_thread::get_id());
}

TEST(BackgroundQueue, RunsTasksAtTheSameTime) {
    const auto queue = makeBackgroundQueue();
    std::promise<void> first;
    std::promise<void> second;
    std::promise<void> done;
    queue->async([&] {
        first.set_value();
        second.get_future().wait();
        done.set_value();
    });
    queue->async([&] {
        first.get_future().wait();
        second.set_value();
    });
    EXPECT_EQ(done.get_future().wait_for(30s), std::future_status::ready);
}

TEST(BackgroundQueue, NeverRunsADelayedTaskEarly) {
    // On a busy machine a single task may be so late that it hides an early start.
    const auto queue = makeBackgroundQueue();
    std::vector<std::pair<std::chrono::milliseconds, std::future<std::chrono::steady_clock::duration>>> waits;
    for (auto delay = 5ms; delay < 45ms; ++delay) {
        auto waited = std::make_shared<std::promise<std::chrono::steady_clock::duration>>();
        waits.emplace_back(delay, waited->get_future());
        queue->asyncAfter(delay, [waited, before = std::chrono::steady_clock::now()] {
            waited->set_value(std::chrono::steady_clock::now() - before);
        });
    }
    for (auto& [delay, waited] : waits) {
        EXPECT_GE(waited.get(), delay);
    }
}

TEST(BackgroundQueue, CountsATaskUntilWhatItHoldsIsReleased) {
    const auto queue = makeBackgroundQueue();
    std::promise<void> finish;
    waitUntilNoTaskRuns();
    int countWhenLetGo = 0;
    std::shared_ptr<void> held(nullptr, [&countWhenLetGo](void*) { countWhenLetGo = runningBackgroundTasks(); });
    queue->async([&finish, held = std::move(held)] { finish.get_future().wait(); });
    EXPECT_EQ(runningBackgroundTasks(), 1);
    finish.set_value();
    waitUntilNoTaskRuns();
    EXPECT_EQ(countWhenLetGo, 1);
}

TEST(BackgroundQueue, DropsATaskAndThrowsWhenThereIsNoThreadForIt) {
    const auto queue = makeBackgroundQueue();
    waitUntilNoTaskRuns();
    bool ran = false;
    std::error_code error;
    std::weak_ptr<int> held;
    const auto reason = testing::withCallsAnswered({SYS_clone, SYS_clone3}, testing::refuseWith(EAGAIN), [&] {
        const auto holding = std::make_shared<int>();
        held = holding;
        try {
            queue->async([&ran, holding] { ran = true; });
        } catch (const std::system_error& refusal) {
            error = refusal.code();
        }
    });
    if (reason) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(error, std::errc::resource_unavailable_try_again);
    EXPECT_TRUE(held.expired());
    EXPECT_FALSE(ran);
    EXPECT_EQ(runningBackgroundTasks(), 0);
}

} // namespace
} // namespace tarvolt
