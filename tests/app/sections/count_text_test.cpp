#include "app/sections/count_text.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(CountText, PutsTheNumberWhereTheTextHasItsPlace) {
    EXPECT_EQ(withNumber("in %lld Dateien", 1234, "de_DE"), "in 1.234 Dateien");
    EXPECT_EQ(withNumber("%lld", 0, "en_US"), "0");
}

TEST(CountText, LeavesATextWithoutAPlaceForTheNumberAsItIs) {
    EXPECT_EQ(withNumber("viele Dateien", 1234, "de_DE"), "viele Dateien");
}

} // namespace
} // namespace tarvolt
