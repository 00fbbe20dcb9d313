#include "app/sections/preview_widths.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(OldNameWidth, IsItsOwnWhereBothNamesFit) {
    EXPECT_EQ(oldNameWidth(100, 200, 300), 100);
    EXPECT_EQ(oldNameWidth(200, 100, 300), 200);
}

TEST(OldNameWidth, IsHalfTheRoomWhereBothNamesAreTooLong) {
    EXPECT_EQ(oldNameWidth(1000, 1000, 300), 150);
}

TEST(OldNameWidth, TakesWhatAShortNewNameLeavesAndNoMoreThanItNeeds) {
    EXPECT_EQ(oldNameWidth(1000, 50, 300), 250);
    EXPECT_EQ(oldNameWidth(50, 1000, 300), 50);
}

} // namespace
} // namespace tarvolt
