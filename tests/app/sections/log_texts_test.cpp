#include "app/sections/log_texts.h"
#include "tests/support/process_time_zone.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace tarvolt {
namespace {

using namespace std::chrono_literals;

std::string timeText(std::chrono::seconds sinceMidnight, const char* locale = "en_US", const char* zone = "UTC0") {
    const testing::ProcessTimeZone inZone(zone);
    return logTimeText(std::chrono::system_clock::time_point(sinceMidnight), locale);
}

TEST(LogTimeText, WritesHoursWithoutALeadingZero) {
    EXPECT_EQ(timeText(15h + 7min + 9s), "3:07:09 PM");
    EXPECT_EQ(timeText(9h + 5min + 3s), "9:05:03 AM");
    EXPECT_EQ(timeText(9h + 5min), "9:05:00 AM");
}

TEST(LogTimeText, WritesNoonAndMidnightAsTwelve) {
    EXPECT_EQ(timeText(12h), "12:00:00 PM");
    EXPECT_EQ(timeText(0s), "12:00:00 AM");
}

TEST(LogTimeText, KeepsThePatternButTakesTheMarkerFromTheLocale) {
    EXPECT_EQ(timeText(15h, "en_GB"), "3:00:00 pm");
    EXPECT_EQ(timeText(15h, "ja_JP"), "3:00:00 午後");
}

TEST(LogTimeText, FollowsTheTimeZone) {
    EXPECT_EQ(timeText(12h, "en_US", "JST-9"), "9:00:00 PM");
}

} // namespace
} // namespace tarvolt
