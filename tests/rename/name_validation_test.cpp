#include "rename/name_validation.h"
#include "tests/support/random_text.h"
#include "tests/support/slow_text.h"
#include "tests/support/utf8_of.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <string_view>

namespace tarvolt {
namespace {

const std::string refusedCharacters = R"(Contains invalid characters: / < > : " | ? * \)";
const std::string refusedEmptiness = "Name cannot be empty";

/// The payload of the refusal, or nothing for an acceptable name.
std::string refusal(std::string_view name) {
    const auto error = validateProjectName(name);
    if (!error) {
        return {};
    }
    EXPECT_EQ(error->kind(), RenameError::Case::invalidName);
    EXPECT_EQ(error->errorDescription(), "Invalid name: " + error->payload());
    return error->payload();
}

constexpr std::array<char32_t, 18> whiteSpace{0x9,    0x20,   0xA0,   0x1680, 0x2000, 0x2001, 0x2002, 0x2003, 0x2004,
                                              0x2005, 0x2006, 0x2007, 0x2008, 0x2009, 0x200A, 0x202F, 0x205F, 0x3000};

/// The refusal of a well-formed name, found in the simplest way.
std::string slowRefusal(std::string_view name) {
    bool isBlank = true;
    for (const char32_t character : testing::slowDecode(name)) {
        if (std::u32string_view(U"/<>:\"|?*\\").find(character) != std::u32string_view::npos) {
            return refusedCharacters;
        }
        isBlank = isBlank && std::find(whiteSpace.begin(), whiteSpace.end(), character) != whiteSpace.end();
    }
    return isBlank ? refusedEmptiness : "";
}

TEST(NameValidation, ListsTheNineRefusedCharactersExactly) {
    EXPECT_EQ(refusedCharacters.size(), 46U);
    EXPECT_EQ(refusal("a/b"), refusedCharacters);
}

TEST(NameValidation, DecidesForEveryCodePointAloneAndBetweenLetters) {
    const std::u32string refused = U"/<>:\"|?*\\";
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        const bool isRefused = refused.find(code) != std::u32string::npos;
        const bool isBlank = std::find(whiteSpace.begin(), whiteSpace.end(), code) != whiteSpace.end();
        // Surrogates are not well-formed in UTF-8. They are acceptable here and fail later, when they are written.
        const auto character = testing::utf8Of(code);
        ASSERT_EQ(refusal(character), isRefused ? refusedCharacters
                                      : isBlank ? refusedEmptiness
                                                : "")
            << std::hex << static_cast<unsigned>(code);
        ASSERT_EQ(refusal("a" + character + "b"), isRefused ? refusedCharacters : "")
            << std::hex << static_cast<unsigned>(code);
    }
}

TEST(NameValidation, AgreesWithASimpleRuleOnRandomNames) {
    constexpr std::array<std::string_view, 22> pieces{
        " ",      "\t",     "\u00a0", "\u3000", "\u2003", " ",          " ", "\n", "\u2028", "\u200b", "a",
        "\u00e9", "\u2215", "\uff0f", "\u203a", "\u00b7", "\U0001F3B5", "/", ":",  "\"",     "\\",     "."};
    std::mt19937 random(11);
    int refused = 0;
    for (int round = 0; round < 100000; ++round) {
        const std::string name = testing::randomText(random, pieces, 5);
        const std::string expected = slowRefusal(name);
        ASSERT_EQ(refusal(name), expected) << name;
        refused += expected.empty() ? 0 : 1;
    }
    EXPECT_GT(refused, 10000);
    EXPECT_LT(refused, 90000);
}

TEST(NameValidation, RefusesASolidusBetweenTwoLetters) {
    EXPECT_EQ(refusal("a/b"), refusedCharacters);
}

TEST(NameValidation, TestsForRefusedCharactersBeforeEmptiness) {
    EXPECT_EQ(refusal("/"), refusedCharacters);
    EXPECT_EQ(refusal("  :\t"), refusedCharacters);
}

TEST(NameValidation, RefusesTheEmptyNameAndOneOfSpacesAndTabsOnly) {
    EXPECT_EQ(refusal(""), refusedEmptiness);
    EXPECT_EQ(refusal(" \t  \t"), refusedEmptiness);
    std::string all;
    for (const char32_t blank : whiteSpace) {
        all += testing::utf8Of(blank);
    }
    EXPECT_EQ(refusal(all), refusedEmptiness);
}

TEST(NameValidation, AcceptsANameOfLineBreaksOnly) {
    for (const char* name : {"\n", "\r\n", "\x0b", "\x0c", "\xc2\x85", "\xe2\x80\xa8", "\xe2\x80\xa9", " \n "}) {
        EXPECT_EQ(refusal(name), "") << name;
    }
}

TEST(NameValidation, AcceptsLeadingAndTrailingSpacesAroundLetters) {
    EXPECT_EQ(refusal(" Beat "), "");
}

TEST(NameValidation, AcceptsAccentsDigitsSignsStopsAndApostrophes) {
    for (const char* name : {"Caf\u00e9", "Cafe\u0301", "808", "Take #2", "Mix (final)", "v1.2", "R&B", "Don't", ".",
                             "..", ".hidden", "CON", "nul", "a\tb", "100%", "~"}) {
        EXPECT_EQ(refusal(name), "") << name;
    }
    EXPECT_EQ(refusal(std::string(5000, 'n')), "");
    EXPECT_EQ(refusal(std::string_view("a\0b", 3)), "");
}

TEST(NameValidation, AcceptsBytesThatAreNotUtf8) {
    EXPECT_EQ(refusal("\xff"), "");
    EXPECT_EQ(refusal("\xed\xa0\x80"), "");
}

} // namespace
} // namespace tarvolt
