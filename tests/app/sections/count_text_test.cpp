#include "app/sections/count_text.h"
#include "foundation/localized.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

class CountText : public ::testing::Test {
protected:
    void TearDown() override { setTranslator(nullptr); }
};

TEST_F(CountText, PutsTheNumberWhereTheTranslationHasItsPlace) {
    setTranslator([](const char*, const char*) { return std::string("in %lld Dateien"); });
    EXPECT_EQ(localizedCount("ProjectRow", "%lld files", 1234, "de_DE"), "in 1.234 Dateien");
}

TEST_F(CountText, LeavesATranslationWithoutAPlaceForTheNumberAsItIs) {
    setTranslator([](const char*, const char*) { return std::string("viele Dateien"); });
    EXPECT_EQ(localizedCount("ProjectRow", "%lld files", 1234, "de_DE"), "viele Dateien");
}

} // namespace
} // namespace tarvolt
