#include "app/awaited_rescan.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

class AwaitedRescanTest : public ::testing::Test {
protected:
    AwaitedRescan rescan;
};

TEST_F(AwaitedRescanTest, TellsTheNewNameOnceAfterTheScan) {
    const int number = rescan.begin();
    rescan.succeed("Night Ferry");
    rescan.due(number);
    EXPECT_FALSE(rescan.take().has_value());
    rescan.scanEnded();
    EXPECT_EQ(rescan.take(), "Night Ferry");
    EXPECT_FALSE(rescan.take().has_value());
    rescan.scanEnded();
    EXPECT_FALSE(rescan.take().has_value());
}

TEST_F(AwaitedRescanTest, AScanThatEndsBeforeTheRescanIsDueDoesNotCount) {
    const int number = rescan.begin();
    rescan.succeed("Night Ferry");
    rescan.scanEnded();
    EXPECT_FALSE(rescan.take().has_value());
    rescan.due(number);
    EXPECT_FALSE(rescan.take().has_value());
    rescan.scanEnded();
    EXPECT_EQ(rescan.take(), "Night Ferry");
}

TEST_F(AwaitedRescanTest, ARenameThatFailedIsNotWaitedFor) {
    rescan.due(rescan.begin());
    rescan.scanEnded();
    EXPECT_FALSE(rescan.take().has_value());
}

TEST_F(AwaitedRescanTest, OfTwoRenamesTheLaterOneCounts) {
    const int first = rescan.begin();
    rescan.succeed("One");
    const int second = rescan.begin();
    rescan.succeed("Two");
    rescan.due(first);
    rescan.scanEnded();
    EXPECT_FALSE(rescan.take().has_value());
    rescan.due(second);
    rescan.scanEnded();
    EXPECT_EQ(rescan.take(), "Two");
}

TEST_F(AwaitedRescanTest, AFailedRenameLeavesTheOneBeforeItWaitedFor) {
    const int first = rescan.begin();
    rescan.succeed("One");
    const int second = rescan.begin();
    rescan.due(first);
    rescan.due(second);
    rescan.scanEnded();
    EXPECT_EQ(rescan.take(), "One");
}

TEST_F(AwaitedRescanTest, ALaterRenameThatGoesWellWaitsForItsOwnRescan) {
    const int first = rescan.begin();
    rescan.succeed("One");
    rescan.due(first);
    rescan.begin();
    rescan.succeed("Two");
    rescan.scanEnded();
    EXPECT_FALSE(rescan.take().has_value());
}

} // namespace
} // namespace tarvolt
