#include "foundation/dispatch_queue.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>

namespace tarvolt {
namespace {

using namespace std::chrono_literals;

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

TEST(BackgroundQueue, IsNeverEarlyWithADelayedTask) {
    const auto queue = makeBackgroundQueue();
    std::promise<std::chrono::steady_clock::time_point> ran;
    const auto before = std::chrono::steady_clock::now();
    queue->asyncAfter(30ms, [&] { ran.set_value(std::chrono::steady_clock::now()); });
    EXPECT_GE(ran.get_future().get() - before, 30ms);
}

TEST(BackgroundQueue, CountsATaskUntilWhatItHoldsIsLetGo) {
    const auto queue = makeBackgroundQueue();
    std::promise<void> finish;
    const int before = runningBackgroundTasks();
    queue->async([&finish] { finish.get_future().wait(); });
    EXPECT_EQ(runningBackgroundTasks(), before + 1);
    finish.set_value();
    while (runningBackgroundTasks() != before) {
        std::this_thread::yield();
    }
}

} // namespace
} // namespace tarvolt
