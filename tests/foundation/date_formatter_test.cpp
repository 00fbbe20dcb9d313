#include "foundation/date_formatter.h"
#include "tests/support/reference_table.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <utility>

namespace tarvolt {
namespace {

using namespace std::chrono_literals;
using TimePoint = std::chrono::system_clock::time_point;

constexpr std::string_view pattern = "h:mm:ss a";

/// A summer's midday and a winter's are offsets from this midnight in UTC, 2024-07-01.
constexpr TimePoint july{std::chrono::sys_days{std::chrono::year{2024} / 7 / 1}.time_since_epoch()};

std::string text(std::chrono::nanoseconds sinceMidnight, std::string_view locale = "en_US",
                 std::string_view zone = "UTC") {
    return DateFormatter(pattern, locale, zone)
        .text(july + std::chrono::duration_cast<std::chrono::system_clock::duration>(sinceMidnight));
}

TEST(DateFormatter, AnswersAsTheReferenceTable) {
    for (const testing::ReferenceRow& row : testing::readReferenceTable("time.tsv", 105, 3)) {
        int hour = -1;
        int minute = -1;
        int second = -1;
        ASSERT_EQ(std::sscanf(row.fields[1].c_str(), "%d:%d:%d", &hour, &minute, &second), 3) << row;
        EXPECT_EQ(text(hour * 1h + minute * 1min + second * 1s, row.fields[0]), row.fields[2]) << row;
    }
}

TEST(DateFormatter, CallsNoonAndMidnightTwelve) {
    EXPECT_EQ(text(12h), "12:00:00 PM");
    EXPECT_EQ(text(0h), "12:00:00 AM");
    EXPECT_EQ(text(24h), "12:00:00 AM");
}

TEST(DateFormatter, WritesHoursWithoutAndMinutesWithALeadingZero) {
    EXPECT_EQ(text(9h + 5min), "9:05:00 AM");
    EXPECT_EQ(text(9h + 5min + 3s), "9:05:03 AM");
    EXPECT_EQ(text(15h + 7min + 9s), "3:07:09 PM");
}

TEST(DateFormatter, RoundsNoSecondUp) {
    EXPECT_EQ(text(11h + 59min + 59s + 999ms), "11:59:59 AM");
    EXPECT_EQ(text(11h + 59min + 59s + 999'999'999ns), "11:59:59 AM");
    EXPECT_EQ(DateFormatter(pattern, "en_US", "UTC").text(TimePoint(-1ns)), "11:59:59 PM");
}

TEST(DateFormatter, FollowsTheTimeZoneWithItsSummerTime) {
    EXPECT_EQ(text(12h, "en_US", "Europe/Berlin"), "2:00:00 PM");
    EXPECT_EQ(text(-4416h + 12h, "en_US", "Europe/Berlin"), "1:00:00 PM");
    EXPECT_EQ(text(12h, "en_US", "Asia/Kolkata"), "5:30:00 PM");
}

TEST(DateFormatter, IsEnglishWhereTheLocaleIsRootOrUnknown) {
    EXPECT_EQ(text(15h, ""), "3:00:00 PM");
    EXPECT_EQ(text(15h, "xx_YY"), "3:00:00 PM");
}

TEST(DateFormatter, TakesOtherPatterns) {
    EXPECT_EQ(DateFormatter("yyyy-MM-dd HH:mm", "en_US", "UTC").text(july + 15h + 7min), "2024-07-01 15:07");
}

TEST(DateFormatter, CanBeMovedAndUsedAgain) {
    DateFormatter first(pattern, "en_US", "UTC");
    DateFormatter formatter(std::move(first));
    EXPECT_EQ(formatter.text(july), "12:00:00 AM");
    formatter = DateFormatter(pattern, "de_DE", "Asia/Tokyo");
    EXPECT_EQ(formatter.text(july), "9:00:00 AM");
    EXPECT_EQ(formatter.text(july + 1s), "9:00:01 AM");
}

TEST(DateFormatter, UsesTheUsersOwnTimeZoneWhereNoneIsNamed) {
    const std::time_t now = std::chrono::system_clock::to_time_t(july);
    std::tm local{};
    ASSERT_NE(localtime_r(&now, &local), nullptr);
    char expected[16];
    ASSERT_GT(std::strftime(expected, sizeof expected, "%H:%M:%S", &local), 0U);
    EXPECT_EQ(DateFormatter("HH:mm:ss", "en_US").text(july), expected);
}

/// Sets the time zone of the process while it lives.
class ProcessTimeZone {
public:
    explicit ProcessTimeZone(const char* zone) {
        if (const char* before = std::getenv("TZ")) {
            before_ = before;
        }
        setenv("TZ", zone, 1);
    }
    ProcessTimeZone(const ProcessTimeZone&) = delete;
    ProcessTimeZone& operator=(const ProcessTimeZone&) = delete;
    ~ProcessTimeZone() {
        before_ ? setenv("TZ", before_->c_str(), 1) : unsetenv("TZ");
        tzset(); // localtime_r need not read the variable again
    }

private:
    std::optional<std::string> before_;
};

TEST(DateFormatter, FollowsTheUsersOwnTimeZoneWhenItChanges) {
    const DateFormatter formatter("HH:mm:ss", "en_US");
    {
        const ProcessTimeZone zone("IST-5:30");
        EXPECT_EQ(formatter.text(july), "05:30:00");
    }
    const ProcessTimeZone zone("<-03>3");
    EXPECT_EQ(formatter.text(july), "21:00:00");
    EXPECT_EQ(DateFormatter("HH:mm Z", "en_US").text(july), "21:00 -0300");
}

TEST(DateFormatter, KnowsTimeZonesThatAreWrittenOutAsRules) {
    const ProcessTimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    const DateFormatter formatter("HH:mm:ss", "en_US");
    EXPECT_EQ(formatter.text(july), "02:00:00");
    EXPECT_EQ(formatter.text(july + 184 * 24h), "01:00:00");
}

} // namespace
} // namespace tarvolt
