#include "foundation/date_formatter.h"
#include "tests/support/process_time_zone.h"
#include "tests/support/reference_table.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <string>

namespace tarvolt {
namespace {

using namespace std::chrono_literals;
using testing::ProcessTimeZone;
using TimePoint = std::chrono::system_clock::time_point;

constexpr std::string_view pattern = "h:mm:ss a";

/// A summer's midday and a winter's are offsets from this midnight in UTC, 2024-07-01.
constexpr TimePoint july{std::chrono::sys_days{std::chrono::year{2024} / 7 / 1}.time_since_epoch()};

std::string text(std::chrono::nanoseconds sinceMidnight, std::string_view locale = "en_US", const char* zone = "UTC0") {
    const ProcessTimeZone inZone(zone);
    return dateText(july + std::chrono::duration_cast<std::chrono::system_clock::duration>(sinceMidnight), pattern,
                    locale);
}

TEST(DateText, AgreesWithTheReferenceTable) {
    for (const testing::ReferenceRow& row : testing::readReferenceTable("time.tsv", 105, 3)) {
        int hour = -1;
        int minute = -1;
        int second = -1;
        ASSERT_EQ(std::sscanf(row.fields[1].c_str(), "%d:%d:%d", &hour, &minute, &second), 3) << row;
        EXPECT_EQ(text(hour * 1h + minute * 1min + second * 1s, row.fields[0]), row.fields[2]) << row;
    }
}

TEST(DateText, WritesNoonAndMidnightAsTwelve) {
    EXPECT_EQ(text(12h), "12:00:00 PM");
    EXPECT_EQ(text(0h), "12:00:00 AM");
    EXPECT_EQ(text(24h), "12:00:00 AM");
}

TEST(DateText, WritesALeadingZeroForMinutesButNotForHours) {
    EXPECT_EQ(text(9h + 5min), "9:05:00 AM");
    EXPECT_EQ(text(9h + 5min + 3s), "9:05:03 AM");
    EXPECT_EQ(text(15h + 7min + 9s), "3:07:09 PM");
}

TEST(DateText, DoesNotRoundSecondsUp) {
    EXPECT_EQ(text(11h + 59min + 59s + 999ms), "11:59:59 AM");
    EXPECT_EQ(text(11h + 59min + 59s + 999'999'999ns), "11:59:59 AM");
    const ProcessTimeZone zone("UTC0");
    EXPECT_EQ(dateText(TimePoint(-1ns), pattern, "en_US"), "11:59:59 PM") << "before 1970";
}

TEST(DateText, IsEnglishForTheRootLocaleAndUnknownOnes) {
    EXPECT_EQ(text(15h, ""), "3:00:00 PM");
    EXPECT_EQ(text(15h, "xx_YY"), "3:00:00 PM");
}

TEST(DateText, TakesOtherPatternsAndLocalesInTurn) {
    const ProcessTimeZone zone("UTC0");
    EXPECT_EQ(dateText(july + 15h + 7min, "yyyy-MM-dd HH:mm", "en_US"), "2024-07-01 15:07");
    EXPECT_EQ(dateText(july + 15h, pattern, "en_GB"), "3:00:00 pm");
    EXPECT_EQ(dateText(july + 15h, pattern, "en_US"), "3:00:00 PM");
}

TEST(DateText, UsesTheUsersOwnTimeZone) {
    const std::time_t now = std::chrono::system_clock::to_time_t(july);
    std::tm local{};
    ASSERT_NE(localtime_r(&now, &local), nullptr);
    char expected[16];
    ASSERT_GT(std::strftime(expected, sizeof expected, "%H:%M:%S", &local), 0U);
    EXPECT_EQ(dateText(july, "HH:mm:ss", "en_US"), expected);
}

TEST(DateText, FollowsTheUsersOwnTimeZoneWhenItChanges) {
    {
        const ProcessTimeZone zone("IST-5:30");
        EXPECT_EQ(dateText(july, "HH:mm:ss", "en_US"), "05:30:00");
    }
    const ProcessTimeZone zone("<-03>3");
    EXPECT_EQ(dateText(july, "HH:mm:ss", "en_US"), "21:00:00");
    EXPECT_EQ(dateText(july, "HH:mm Z", "en_US"), "21:00 -0300");
}

TEST(DateText, SupportsTimeZonesWrittenAsRules) {
    const ProcessTimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(dateText(july, "HH:mm:ss", "en_US"), "02:00:00");
    EXPECT_EQ(dateText(july + 184 * 24h, "HH:mm:ss", "en_US"), "01:00:00");
}

} // namespace
} // namespace tarvolt
