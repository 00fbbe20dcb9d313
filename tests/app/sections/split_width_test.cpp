#include "app/sections/split_width.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(AllowedLogWidth, StaysBetweenItsLimits) {
    EXPECT_EQ(allowedLogWidth(0, 1000), 220);
    EXPECT_EQ(allowedLogWidth(250, 1000), 250);
    EXPECT_EQ(allowedLogWidth(900, 1000), 280);
}

TEST(AllowedLogWidth, LeavesTheListItsLeastWidth) {
    EXPECT_EQ(allowedLogWidth(280, 680), 280);
    EXPECT_EQ(allowedLogWidth(280, 650), 250);
}

TEST(AllowedLogWidth, KeepsTheLogsOwnLimitWhereBothDoNotFit) {
    EXPECT_EQ(allowedLogWidth(280, 500), 220);
    EXPECT_EQ(allowedLogWidth(280, 0), 220);
}

} // namespace
} // namespace tarvolt
