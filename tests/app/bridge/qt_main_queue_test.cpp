#include "app/bridge/qt_main_queue.h"

#include <QCoreApplication>
#include <QTest>

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

namespace tarvolt {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

void turnUntil(const std::function<bool()>& done) {
    EXPECT_TRUE(QTest::qWaitFor(done, 5000));
}

TEST(QtMainQueueTest, RunsTasksInOrderAndNeverImmediately) {
    QtMainQueue queue;
    std::vector<int> ran;
    for (int i = 0; i < 100; ++i) {
        queue.async([&ran, i] { ran.push_back(i); });
    }
    EXPECT_TRUE(ran.empty());
    turnUntil([&] { return ran.size() == 100; });
    EXPECT_TRUE(std::is_sorted(ran.begin(), ran.end()));
}

TEST(QtMainQueueTest, RunsTasksFromOtherThreadsOnTheMainThread) {
    QtMainQueue queue;
    std::thread::id ranOn;
    std::thread([&] { queue.async([&] { ranOn = std::this_thread::get_id(); }); }).join();
    turnUntil([&] { return ranOn != std::thread::id(); });
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST(QtMainQueueTest, NeverRunsADelayedTaskEarlyAndNotMuchLate) {
    QtMainQueue queue;
    for (const auto delay : {0ms, 1ms, 7ms, 20ms, 50ms, 333ms, 500ms}) {
        const auto posted = Clock::now();
        std::optional<Clock::time_point> ran;
        queue.asyncAfter(delay, [&] { ran = Clock::now(); });
        EXPECT_FALSE(ran.has_value());
        turnUntil([&] { return ran.has_value(); });
        EXPECT_GE(*ran - posted, delay);
        EXPECT_LT(*ran - posted, delay + 100ms) << delay.count() << " ms";
    }
}

TEST(QtMainQueueTest, CountsADelayFromTheCallEvenIfTheMainThreadIsBusy) {
    QtMainQueue queue;
    const auto posted = Clock::now();
    std::optional<Clock::time_point> ran;
    queue.asyncAfter(100ms, [&] { ran = Clock::now(); });
    std::this_thread::sleep_for(80ms);
    turnUntil([&] { return ran.has_value(); });
    EXPECT_GE(*ran - posted, 100ms);
    EXPECT_LT(*ran - posted, 160ms);
}

TEST(QtMainQueueTest, DropsWaitingAndLateTasksOnceStopped) {
    QtMainQueue queue;
    auto token = std::make_shared<int>(0);
    queue.async([token] { ++*token; });
    queue.asyncAfter(1ms, [token] { ++*token; });
    queue.stop();
    std::thread([&] { queue.async([token] { ++*token; }); }).join();
    queue.asyncAfter(1ms, [token] { ++*token; });
    QTest::qWait(30);
    EXPECT_EQ(*token, 0);
    EXPECT_EQ(token.use_count(), 1) << "a dropped task is gone";
}

TEST(QtMainQueueTest, DropsADelayedTaskWhenStopped) {
    QtMainQueue queue;
    bool ran = false;
    queue.asyncAfter(20ms, [&] { ran = true; });
    QCoreApplication::processEvents();
    queue.stop();
    QTest::qWait(60);
    EXPECT_FALSE(ran);
}

TEST(QtMainQueueTest, AcceptsTasksFromManyThreadsWhileStopping) {
    QtMainQueue queue;
    const auto held = std::make_shared<int>();
    std::atomic<bool> end = false;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            while (!end) {
                queue.async([held] {});
            }
        });
    }
    QTest::qWait(20);
    queue.stop();
    QTest::qWait(5);
    end = true;
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(held.use_count(), 1) << "what came later is kept";
}

} // namespace
} // namespace tarvolt
