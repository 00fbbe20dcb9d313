#include "foundation/text.h"
#include "tests/support/random_text.h"
#include "tests/support/reference_table.h"
#include "tests/support/replaced_text.h"
#include "tests/support/slow_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvolt {
namespace {

using namespace std::string_literals;

constexpr std::string_view tail = "_[ProjectData]";

std::string replaced(std::string_view text, std::string_view oldText, std::string_view newText) {
    return testing::replacedText(text, oldText, newText, tail);
}

TEST(ReplaceAllBeforeTail, AgreesWithTheReferenceTable) {
    for (const testing::ReferenceRow& row : testing::readReferenceTable("replace.tsv", 1421, 4)) {
        std::string_view oldText = row.fields[1];
        std::string_view newText = row.fields[2];
        ASSERT_TRUE(oldText.ends_with(tail) && newText.ends_with(tail)) << row;
        oldText.remove_suffix(tail.size());
        newText.remove_suffix(tail.size());
        EXPECT_EQ(replaced(row.fields[0], oldText, newText), row.fields[3]) << row;
    }
}

TEST(ReplaceAllBeforeTail, ReplacesEveryMatchAndLeavesTheBareNameAlone) {
    EXPECT_EQ(replaced("<a>Song_[ProjectData]/kick.wav</a> Song <b f='Song_[ProjectData]'/>", "Song", "Beat"),
              "<a>Beat_[ProjectData]/kick.wav</a> Song <b f='Beat_[ProjectData]'/>");
}

TEST(ReplaceAllBeforeTail, ReplacesToTheEndOfALongText) {
    const std::string between(1U << 20U, 'x');
    std::string text;
    std::string expected;
    for (int megabyte = 0; megabyte < 20; ++megabyte) {
        text += between + "Song_[ProjectData]";
        expected += between + "Beat_[ProjectData]";
    }
    EXPECT_TRUE(replaced(text, "Song", "Beat") == expected) << "too long to be shown";
}

TEST(ReplaceAllBeforeTail, WritesWhatItKeepsWithoutCopyingIt) {
    const std::string text = "a Song_[ProjectData] Song_[ProjectData]/b";
    std::vector<std::string> parts;
    std::ptrdiff_t kept = 0;
    replaceAllBeforeTail(text, "Song", "Beat", tail, [&](std::string_view part) {
        const bool isInTheText = part.data() >= text.data() && part.data() < text.data() + text.size();
        kept += isInTheText ? 1 : 0;
        parts.emplace_back(part);
    });
    EXPECT_THAT(parts, ::testing::ElementsAre("a ", "Beat_[ProjectData]", " ", "Beat_[ProjectData]", "/b"));
    EXPECT_EQ(kept, 3);
}

TEST(ReplaceAllBeforeTail, ReplacesAtTheEndOfALongerName) {
    EXPECT_EQ(replaced("My Song_[ProjectData]", "Song", "Beat"), "My Beat_[ProjectData]");
}

TEST(ReplaceAllBeforeTail, LeavesATextWithoutAMatchAsItIs) {
    EXPECT_EQ(replaced("", "Song", "Beat"), "");
    EXPECT_EQ(replaced("Song", "Song", "Beat"), "Song");
    EXPECT_EQ(replaced("Other_[ProjectData]", "Song", "Beat"), "Other_[ProjectData]");
    EXPECT_EQ(replaced("Song_[ProjectData", "Song", "Beat"), "Song_[ProjectData");
    EXPECT_EQ(replaced("ng_[ProjectData]", "Song", "Beat"), "ng_[ProjectData]");
}

TEST(ReplaceAllBeforeTail, IsCaseSensitive) {
    EXPECT_EQ(replaced("song_[ProjectData]", "Song", "Beat"), "song_[ProjectData]");
    EXPECT_EQ(replaced("Song_[projectdata]", "Song", "Beat"), "Song_[projectdata]");
}

TEST(ReplaceAllBeforeTail, FindsTheNameInAnyCanonicalForm) {
    EXPECT_EQ(replaced("Cafe\u0301_[ProjectData]", "Caf\u00e9", "N"), "N_[ProjectData]");
    EXPECT_EQ(replaced("Caf\u00e9_[ProjectData]", "Cafe\u0301", "N"), "N_[ProjectData]");
    EXPECT_EQ(replaced("\u1112\u1161\u11ab_[ProjectData]", "\ud55c", "N"), "N_[ProjectData]");
    EXPECT_EQ(replaced("e\u0301\u0327_[ProjectData]", "e\u0327\u0301", "N"), "N_[ProjectData]");
    EXPECT_EQ(replaced("\u212a_[ProjectData]", "K", "N"), "N_[ProjectData]");
    EXPECT_EQ(replaced("Cafe_[ProjectData]", "Caf\u00e9", "N"), "Cafe_[ProjectData]");
}

TEST(ReplaceAllBeforeTail, KeepsEveryOtherByte) {
    const std::string before = "\uFEFF<x>\r\nCafe\u0301 Caf\u00e9 \u212b\t";
    const std::string after = "/a.wav</x>\0\r"s;
    EXPECT_EQ(replaced(before + "Song_[ProjectData]" + after, "Song", "Caf\u00e9"),
              before + "Caf\u00e9_[ProjectData]" + after);
}

TEST(ReplaceAllBeforeTail, DoesNotEndBeforeAMark) {
    EXPECT_EQ(replaced("Song_[ProjectData]\u0301 Song_[ProjectData]", "Song", "N"),
              "Song_[ProjectData]\u0301 N_[ProjectData]");
    EXPECT_EQ(replaced("Song_[ProjectData]\u20dd", "Song", "N"), "Song_[ProjectData]\u20dd");
}

TEST(ReplaceAllBeforeTail, DoesNotEndBeforeAVowelSignThatDecomposesIntoAMark) {
    struct Sign {
        const char* composed;
        const char* decomposed;
    };
    const Sign signs[] = {{"\u0cc0", "\u0cbf\u0cd5"}, {"\u0cc7", "\u0cc6\u0cd5"},       {"\u0cc8", "\u0cc6\u0cd6"},
                          {"\u0cca", "\u0cc6\u0cc2"}, {"\u0ccb", "\u0cc6\u0cc2\u0cd5"}, {"\u1b3b", "\u1b3a\u1b35"},
                          {"\u1b3d", "\u1b3c\u1b35"}, {"\u1b43", "\u1b42\u1b35"}};
    for (const auto& [composed, decomposed] : signs) {
        for (const std::string sign : {composed, decomposed}) {
            EXPECT_EQ(replaced("Song_[ProjectData]" + sign, "Song", "N"), "Song_[ProjectData]" + sign);
        }
    }
}

TEST(ReplaceAllBeforeTail, MayStartInsideAHangulSyllable) {
    EXPECT_EQ(replaced("\u1100\u1161f\u0301_[ProjectData]", "\u1161f\u0301", "N"), "\u1100N_[ProjectData]");
    EXPECT_EQ(replaced("\ud558\u11ab_[ProjectData]", "\u11ab", "N"), "\ud558N_[ProjectData]");
    EXPECT_EQ(replaced("\ud55c_[ProjectData]", "\u11ab", "N"), "\ud55c_[ProjectData]");
    EXPECT_EQ(replaced("\ud55c\ud558_[ProjectData]", "\ud558", "N"), "\ud55cN_[ProjectData]");
}

TEST(ReplaceAllBeforeTail, DoesNotSearchInsertedTextAgain) {
    EXPECT_EQ(replaced("A_[ProjectData]", "A", "A_[ProjectData]A"), "A_[ProjectData]A_[ProjectData]");
}

TEST(ReplaceAllBeforeTail, MatchesOverlappingPlacesFromTheLeft) {
    const std::string oldText = "_[ProjectData]";
    EXPECT_EQ(replaced("_[ProjectData]_[ProjectData]_[ProjectData]", oldText, "N"), "N_[ProjectData]_[ProjectData]");
    EXPECT_EQ(testing::replacedText("aaaaa", "a", "b", "a"), "babaa");
    EXPECT_EQ(testing::replacedText("aaaa", "a", "", "aa"), "aaa");
    EXPECT_EQ(testing::replacedText("x---", "x-", "y", "--"), "y--");
}

TEST(ReplaceAllBeforeTail, MatchesAnEmptyNameBeforeTheTail) {
    EXPECT_EQ(replaced("x_[ProjectData] _[ProjectData]", "", "N"), "xN_[ProjectData] N_[ProjectData]");
    EXPECT_EQ(replaced("Song_[ProjectData]", "Song", ""), "_[ProjectData]");
}

TEST(ReplaceAllBeforeTail, MatchesNothingWithANameThatIsNotUtf8) {
    EXPECT_EQ(replaced("Caf\uFFFD_[ProjectData]", "Caf\xE9", "N"), "Caf\uFFFD_[ProjectData]");
}

TEST(ReplaceAllBeforeTail, InsertsAnyBytesOfTheNewName) {
    EXPECT_EQ(replaced("Song_[ProjectData]", "Song", "R&B\xED\xA0\x80"), "R&B\xED\xA0\x80_[ProjectData]");
}

TEST(ReplaceAllBeforeTail, AgreesWithASimpleReplacementOnRandomTexts) {
    constexpr std::array<std::string_view, 32> pieces{"_[ProjectData]",
                                                      "_[ProjectData]",
                                                      "_[ProjectData]",
                                                      "_[ProjectData]",
                                                      "_[ProjectData]",
                                                      "_[ProjectData",
                                                      "a",
                                                      "b",
                                                      "K",
                                                      "\u212a",
                                                      "e",
                                                      "\u00e9",
                                                      "\u0301",
                                                      "\u0327",
                                                      "\u0344",
                                                      "\u1e69",
                                                      "\u1e61",
                                                      "\u1100",
                                                      "\u1161",
                                                      "\u11a8",
                                                      "\uac00",
                                                      "\uac01",
                                                      "\U0001D15E",
                                                      "\U0001D157",
                                                      "\U0001D165",
                                                      "\u200d",
                                                      "\u20dd",
                                                      "\u0f73",
                                                      "\U0001F3B5",
                                                      "_",
                                                      "]",
                                                      "\u2126"};
    std::mt19937 random(3);
    int changed = 0;
    for (int round = 0; round < 60000; ++round) {
        const std::string oldText = testing::randomText(random, pieces, 2);
        const std::string text = testing::randomText(random, pieces, 3) + oldText + std::string(tail) +
                                 testing::randomText(random, pieces, 4);
        const std::string expected = testing::slowReplaceAll(text, oldText + std::string(tail), "N_[ProjectData]");
        ASSERT_EQ(replaced(text, oldText, "N"), expected) << text << " | " << oldText;
        changed += expected != text ? 1 : 0;
    }
    EXPECT_GT(changed, 20000);
}

} // namespace
} // namespace tarvolt
