#include "tests/support/manual_queue.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvolt::testing {
namespace {

using namespace std::chrono_literals;

TEST(ManualQueue, RunsNothingBeforeItIsDrained) {
    ManualQueue queue;
    bool ran = false;
    queue.async([&] { ran = true; });
    EXPECT_FALSE(ran);
    queue.drain();
    EXPECT_TRUE(ran);
}

TEST(ManualQueue, RunsTasksInTheOrderOfTheirDueTimes) {
    ManualQueue queue;
    std::string order;
    queue.asyncAfter(20ms, [&] { order += 'c'; });
    queue.asyncAfter(10ms, [&] { order += 'b'; });
    queue.async([&] { order += 'a'; });
    queue.advance(9ms);
    EXPECT_EQ(order, "a");
    queue.advance(11ms);
    EXPECT_EQ(order, "abc");
    EXPECT_EQ(queue.now(), 20ms);
}

TEST(ManualQueue, RunsWhatATaskAddsAtItsOwnTime) {
    ManualQueue queue;
    ManualQueue::Milliseconds at{0};
    queue.asyncAfter(10ms, [&] { queue.asyncAfter(5ms, [&] { at = queue.now(); }); });
    queue.advance(100ms);
    EXPECT_EQ(at, 15ms);
}

} // namespace
} // namespace tarvolt::testing
