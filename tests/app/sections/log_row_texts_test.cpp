#include "app/sections/log_row_texts.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(LogRowTexts, SayTheMessageAndThenItsTime) {
    EXPECT_EQ(logRowSentence({{}, {}, "Scan complete: 2 project(s)", false}, "3:07:09 PM"),
              "Scan complete: 2 project(s), 3:07:09 PM");
}

TEST(LogRowTexts, SayInWordsThatALineIsAFailure) {
    EXPECT_EQ(logRowSentence({{}, {}, "Scan error: no", true}, "9:05:03 AM"), "Error: Scan error: no, 9:05:03 AM");
}

} // namespace
} // namespace tarvolt
