#include "foundation/text.h"
#include "tests/support/random_text.h"
#include "tests/support/reference_table.h"
#include "tests/support/slow_text.h"
#include "tests/support/utf8_of.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tarvolt {
namespace {

using namespace std::string_literals;

std::set<char32_t> whitespaceCharacters() {
    std::set<char32_t> characters;
    for (const testing::ReferenceRow& row : testing::readReferenceTable("whitespace.tsv", 18, 1)) {
        characters.insert(static_cast<char32_t>(std::stoul(row.line, nullptr, 16)));
    }
    return characters;
}

/// A well-formed text trimmed in the simplest way.
std::string slowTrim(std::string_view text, const std::set<char32_t>& whitespace) {
    std::vector<char32_t> characters = testing::slowDecode(text);
    while (!characters.empty() && whitespace.contains(characters.front())) {
        characters.erase(characters.begin());
    }
    while (!characters.empty() && whitespace.contains(characters.back())) {
        characters.pop_back();
    }
    std::string trimmed;
    for (const char32_t character : characters) {
        trimmed += testing::utf8Of(character);
    }
    return trimmed;
}

TEST(TrimWhitespace, AgreesWithTheReferenceTable) {
    for (const testing::ReferenceRow& row : testing::readReferenceTable("trim.tsv", 16, 2)) {
        EXPECT_EQ(trimWhitespace(row.fields[0]), row.fields[1]) << row;
    }
}

TEST(TrimWhitespace, RemovesTheEighteenWhitespaceCharactersAndNoOther) {
    const std::set<char32_t> whitespace = whitespaceCharacters();
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

TEST(TrimWhitespace, AgreesWithASimpleTrimOnRandomTexts) {
    // White space, characters that look like it but are not, and characters that share bytes with it.
    constexpr std::array<std::string_view, 24> pieces{
        " ",      "\t",     "\u00a0", "\u1680", "\u2000", "\u2007", "\u200a",     "\u202f",
        "\u205f", "\u3000", "\n",     "\r",     "\u0085", "\u2028", "\u200b",     "\u180e",
        "\ufeff", "\u3001", "\u20a0", "\u00e0", "a",      "\u0301", "\U00012000", "\U0001F3B5"};
    const std::set<char32_t> whitespace = whitespaceCharacters();
    std::mt19937 random(7);
    for (int round = 0; round < 100000; ++round) {
        const std::string text = testing::randomText(random, pieces, 6);
        ASSERT_EQ(trimWhitespace(text), slowTrim(text, whitespace)) << text;
    }
}

TEST(TrimWhitespace, LeavesNothingOfSpacesAndTabs) {
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

TEST(TrimWhitespace, ReturnsAPartOfTheTextItself) {
    const std::string text = "  name ";
    EXPECT_EQ(trimWhitespace(text).data(), text.data() + 2);
}

} // namespace
} // namespace tarvolt
