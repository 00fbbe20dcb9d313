#include "foundation/text.h"
#include "tests/support/random_text.h"
#include "tests/support/reference_table.h"
#include "tests/support/slow_text.h"
#include "tests/support/utf8_of.h"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <string>
#include <string_view>

#include <unicode/uchar.h>

namespace tarvolt {
namespace {

bool contains(std::string_view text, std::string_view search, std::string_view locale = "en_US") {
    return localizedCaseInsensitiveContains(text, search, locale);
}

TEST(LocalizedCaseInsensitiveContains, AgreesWithTheReferenceTable) {
    for (const testing::ReferenceRow& row : testing::readReferenceTable("contains.tsv", 2737, 3)) {
        EXPECT_EQ(contains(row.fields[0], row.fields[1]), row.fields[2] == "1") << row;
    }
}

TEST(LocalizedCaseInsensitiveContains, IgnoresCase) {
    EXPECT_TRUE(contains("My song 2", "SONG"));
    EXPECT_TRUE(contains("SONGBOOK", "song"));
    EXPECT_TRUE(contains("\u00c9TUDE", "\u00e9tude"));
    EXPECT_TRUE(contains("\u039f\u03b4\u03cc\u03c2", "\u039f\u0394\u038c\u03a3"));
    EXPECT_FALSE(contains("My song 2", "songs"));
}

TEST(LocalizedCaseInsensitiveContains, PairsAsciiCharactersOnlyIfTheyAreTheSameLetter) {
    for (int one = 0; one < 0x80; ++one) {
        for (int other = 0; other < 0x80; ++other) {
            const bool same = one == other || (std::isalpha(one) != 0 && std::tolower(one) == std::tolower(other));
            EXPECT_EQ(contains(std::string(1, static_cast<char>(one)), std::string(1, static_cast<char>(other))), same)
                << one << " and " << other;
        }
    }
}

TEST(LocalizedCaseInsensitiveContains, UsesFullCaseFolding) {
    EXPECT_TRUE(contains("stra\u00dfe", "STRASSE"));
    EXPECT_TRUE(contains("STRASSE", "stra\u00dfe"));
    EXPECT_TRUE(contains("o\ufb03ce", "OFFICE"));
    EXPECT_TRUE(contains("\u1fb3", "\u0391\u0399"));
}

TEST(LocalizedCaseInsensitiveContains, MatchesCanonicallyEquivalentForms) {
    EXPECT_TRUE(contains("Caf\u00e9", "e\u0301"));
    EXPECT_TRUE(contains("CAFE\u0301", "caf\u00e9"));
    EXPECT_TRUE(contains("\u212b", "\u00e5"));
    EXPECT_TRUE(contains("e\u0301\u0327", "E\u0327\u0301"));
}

TEST(LocalizedCaseInsensitiveContains, DistinguishesAccents) {
    EXPECT_FALSE(contains("Caf\u00e9", "cafe"));
    EXPECT_FALSE(contains("Cafe\u0301", "cafe"));
    EXPECT_FALSE(contains("Cafe", "caf\u00e9"));
}

TEST(LocalizedCaseInsensitiveContains, DoesNotEndBeforeAMarkButLooksFurther) {
    EXPECT_FALSE(contains("a\u20dd", "a"));
    EXPECT_FALSE(contains("\u0e01\u0e34", "\u0e01"));
    EXPECT_TRUE(contains("a\u0301 a", "a"));
    EXPECT_TRUE(contains("b\u0301b\u0301b", "b\u0301b"));
    EXPECT_TRUE(contains("\u00e4\u00e1a", "A"));
}

TEST(LocalizedCaseInsensitiveContains, DoesNotEndInsideAHangulSyllable) {
    EXPECT_FALSE(contains("\ud55c", "\ud558"));
    EXPECT_FALSE(contains("\u1112\u1161\u11ab", "\u1112"));
    EXPECT_TRUE(contains("\ud55c\ud558", "\ud558"));
    EXPECT_TRUE(contains("\u1112\u1161\u11ab", "\ud55c"));
}

TEST(LocalizedCaseInsensitiveContains, StartsAnywhere) {
    EXPECT_TRUE(contains("\ud55c", "\u11ab"));
    EXPECT_TRUE(contains("\u1112\u1161\u11ab", "\u1161\u11ab"));
    EXPECT_TRUE(contains("\u1100\u1161f\u0301 song", "\u1161f\u0301 S"));
}

TEST(LocalizedCaseInsensitiveContains, NeverFindsAnEmptySearch) {
    EXPECT_FALSE(contains("a", ""));
    EXPECT_FALSE(contains("", ""));
    EXPECT_FALSE(contains("", "a"));
    EXPECT_FALSE(contains("\u0131", "", "tr_TR"));
}

TEST(LocalizedCaseInsensitiveContains, CountsBlanksAndLineBreaks) {
    EXPECT_TRUE(contains("My song", " "));
    EXPECT_FALSE(contains("Mysong", " "));
    EXPECT_TRUE(contains("song 2", "song "));
    EXPECT_FALSE(contains("song", "song "));
    EXPECT_FALSE(contains("a b", "a\u00a0b"));
    EXPECT_FALSE(contains("a b", "a\nb"));
}

TEST(LocalizedCaseInsensitiveContains, HasNoPatterns) {
    EXPECT_FALSE(contains("Song.xpj", "s*g"));
    EXPECT_FALSE(contains("Song", ".xpj"));
    EXPECT_TRUE(contains("a*b [1]", "*B ["));
}

TEST(LocalizedCaseInsensitiveContains, PairsTheTurkishLettersInTurkishAndAzeri) {
    for (const char* locale : {"tr", "tr_TR", "az_AZ", "az_Latn_AZ", "az-Latn"}) {
        EXPECT_TRUE(contains("\u0130zmir", "izmir", locale)) << locale;
        EXPECT_TRUE(contains("izmir", "\u0130ZM\u0130R", locale)) << locale;
        EXPECT_TRUE(contains("I\u0307zmir", "izmir", locale)) << locale;
        EXPECT_TRUE(contains("I\u015fik", "\u0131\u015f", locale)) << locale;
        EXPECT_TRUE(contains("\u0131\u015f\u0131k", "I\u015eI", locale)) << locale;
        EXPECT_FALSE(contains("Izmir", "izmir", locale)) << locale;
        EXPECT_FALSE(contains("izmir", "I", locale)) << locale;
        EXPECT_FALSE(contains("\u0130zmir", "I", locale)) << locale;
        EXPECT_TRUE(contains("SONG", "song", locale)) << locale;
    }
}

TEST(LocalizedCaseInsensitiveContains, DoesNotPairTheTurkishLettersElsewhere) {
    for (const char* locale : {"", "en_US", "de_DE", "kk_KZ", "tru_TR", "azb_IR"}) {
        EXPECT_TRUE(contains("Izmir", "izmir", locale)) << locale;
        EXPECT_FALSE(contains("\u0130zmir", "izmir", locale)) << locale;
        EXPECT_TRUE(contains("\u0130zmir", "i\u0307zmir", locale)) << locale;
        EXPECT_FALSE(contains("\u0131\u015f\u0131k", "I\u015eI", locale)) << locale;
    }
}

TEST(LocalizedCaseInsensitiveContains, SearchesNamesThatAreNotUtf8AsDisplayed) {
    EXPECT_TRUE(contains("Caf\xE9 Song", "song"));
    EXPECT_TRUE(contains("Caf\xE9 Song", "\uFFFD s"));
    EXPECT_FALSE(contains("Caf\xE9 Song", "caf\u00e9"));
}

class EveryCodePoint : public ::testing::TestWithParam<bool> {};

INSTANTIATE_TEST_SUITE_P(Of, EveryCodePoint, ::testing::Values(false, true),
                         [](const auto& test) { return test.param ? "Turkish" : "English"; });

TEST_P(EveryCodePoint, IsFoundAsByASimpleSearch) {
    const bool turkic = GetParam();
    int found = 0;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character == 0xD800) {
            character = 0xE000; // surrogates have no well-formed bytes
        }
        const auto code = static_cast<UChar32>(character);
        const UChar32 other = u_tolower(code) != code ? u_tolower(code) : u_toupper(code);
        const std::string text = "a" + testing::utf8Of(character) + "b";
        const std::string search = testing::utf8Of(static_cast<char32_t>(other));
        const bool expected = testing::slowContains(text, search, turkic);
        ASSERT_EQ(contains(text, search, turkic ? "tr_TR" : "en_US"), expected)
            << std::hex << static_cast<unsigned>(character);
        found += expected ? 1 : 0;
    }
    EXPECT_GT(found, 1'000'000);
}

TEST(LocalizedCaseInsensitiveContains, AgreesWithASimpleSearchOnRandomTexts) {
    constexpr std::array<std::string_view, 44> pieces{
        "a",      "A",      "b",      "s",          "S",          "\u017f",     "\u00df", "\u1e9e",      "k",
        "\u212a", "i",      "I",      "\u0130",     "\u0131",     "\u0307",     "\u0301", "\u0327",      "\u00e9",
        "E",      "e",      "\u00ed", "\u1ec8",     "\u03b1",     "\u0345",     "\u0399", "\u1fb3",      "\u03c3",
        "\u03c2", "\u03a3", "\u1100", "\u1161",     "\u11a8",     "\uac00",     "\uac01", "\u0e01",      "\u0e34",
        "\u200d", "\u20dd", " ",      "\U00010400", "\U00010428", "\U0001F3B5", "\u304c", "\u304b\u3099"};
    std::mt19937 random(2);
    int found = 0;
    for (int round = 0; round < 100000; ++round) {
        const std::string text = testing::randomText(random, pieces, 6);
        const std::string search = testing::randomText(random, pieces, 2);
        const bool turkic = round % 2 == 1;
        const bool expected = testing::slowContains(text, search, turkic);
        ASSERT_EQ(contains(text, search, turkic ? "tr_TR" : "en_US"), expected)
            << text << " | " << search << (turkic ? " tr" : " en");
        found += expected && !search.empty() ? 1 : 0;
    }
    EXPECT_GT(found, 3000);
}

} // namespace
} // namespace tarvolt
