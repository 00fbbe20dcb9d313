#include "foundation/text.h"
#include "tests/support/reference_table.h"
#include "tests/support/utf8_of.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tarvolt {
namespace {

using namespace std::string_literals;

TEST(TrimWhitespace, AnswersAsTheReferenceTable) {
    for (const testing::ReferenceRow& row : testing::readReferenceTable("trim.tsv", 16, 2)) {
        EXPECT_EQ(trimWhitespace(row.fields[0]), row.fields[1]) << row;
    }
}

TEST(TrimWhitespace, TakesAwayTheEighteenWhitespaceCharactersAndNoOther) {
    std::set<char32_t> whitespace;
    for (const testing::ReferenceRow& row : testing::readReferenceTable("whitespace.tsv", 18, 1)) {
        whitespace.insert(static_cast<char32_t>(std::stoul(row.line, nullptr, 16)));
    }
    ASSERT_EQ(whitespace.size(), 18U);
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        const std::string text = testing::utf8Of(character);
        const std::string name = "a" + text + "b";
        const std::string surrounded = text + text + name + text + text;
        ASSERT_EQ(trimWhitespace(surrounded), whitespace.contains(character) ? name : surrounded)
            << std::hex << std::uint32_t{character};
        ASSERT_EQ(trimWhitespace(text).empty(), whitespace.contains(character)) << std::hex << std::uint32_t{character};
    }
}

TEST(TrimWhitespace, LeavesNothingOfBlanksAndTabs) {
    EXPECT_EQ(trimWhitespace(""), "");
    EXPECT_EQ(trimWhitespace(" \t \u00a0\u3000\t"), "");
}

TEST(TrimWhitespace, KeepsLineBreaks) {
    EXPECT_EQ(trimWhitespace("\n"), "\n");
    EXPECT_EQ(trimWhitespace(" \r\n "), "\r\n");
    EXPECT_EQ(trimWhitespace("\u2028"), "\u2028");
}

TEST(TrimWhitespace, KeepsIllFormedBytes) {
    EXPECT_EQ(trimWhitespace(" \xA0 "), "\xA0");
    EXPECT_EQ(trimWhitespace(" \xE3\x80 "), "\xE3\x80");
    EXPECT_EQ(trimWhitespace(" \xE2\x80\x80\x80 "), "\x80");
}

TEST(TrimWhitespace, AnswersWithAPartOfTheTextItself) {
    const std::string text = "  name ";
    EXPECT_EQ(trimWhitespace(text).data(), text.data() + 2);
}

} // namespace
} // namespace tarvolt
