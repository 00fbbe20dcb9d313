#include "foundation/text.h"
#include "model/folder_scan.h"
#include "tests/support/replaced_text.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace tarvolt {
namespace {

struct Row {
    const char* fact;
    std::string text;
    std::string oldName;
    std::string newName;
    std::string expected;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.fact;
}

class ReferenceRewrite : public ::testing::TestWithParam<Row> {};

const Row rows[] = {
    {"EveryOccurrence", "a/Song_[ProjectData]/k.wav b/Song_[ProjectData]/s.wav", "Song", "Beat",
     "a/Beat_[ProjectData]/k.wav b/Beat_[ProjectData]/s.wav"},
    {"TwoSideBySide", "Song_[ProjectData]Song_[ProjectData]", "Song", "Beat", "Beat_[ProjectData]Beat_[ProjectData]"},
    {"NotTheBareName", "<Name>Song</Name>Song_[ProjectData]", "Song", "Beat", "<Name>Song</Name>Beat_[ProjectData]"},
    {"NotTheBareFolderName", "_[ProjectData]", "Song", "Beat", "_[ProjectData]"},
    {"NothingWhereThereIsNone", "<xml/>", "Song", "Beat", "<xml/>"},
    {"NothingInNoText", "", "Song", "Beat", ""},
    {"NotAnotherLetterCase", "song_[ProjectData]Song_[projectdata]", "Song", "Beat",
     "song_[ProjectData]Song_[projectdata]"},
    {"AlsoTheEndOfALongerName", "MySong_[ProjectData]", "Song", "Beat", "MyBeat_[ProjectData]"},
    {"NotWhatWasInserted", "Song_[ProjectData]", "Song", "Song_[ProjectData]Song",
     "Song_[ProjectData]Song_[ProjectData]"},
    {"WithoutReadingEntities", "R&amp;B_[ProjectData] R&B_[ProjectData]", "R&B", "Soul",
     "R&amp;B_[ProjectData] Soul_[ProjectData]"},
    {"WithoutWritingEntities", "Song_[ProjectData]", "Song", "R&B <3", "R&B <3_[ProjectData]"},
    {"APrecomposedLetterByADecomposedName", "Caf\u00e9_[ProjectData]", "Cafe\u0301", "Tea", "Tea_[ProjectData]"},
    {"ADecomposedLetterByAPrecomposedName", "Cafe\u0301_[ProjectData]", "Caf\u00e9", "Tea", "Tea_[ProjectData]"},
    {"NotBeforeACombiningMark", "Song_[ProjectData]\u0301", "Song", "Beat", "Song_[ProjectData]\u0301"},
    {"KeepingTheByteOrderMark", "\xef\xbb\xbf<a>Song_[ProjectData]</a>", "Song", "Beat",
     "\xef\xbb\xbf<a>Beat_[ProjectData]</a>"},
    {"KeepingLineEnds", "a\r\nSong_[ProjectData]\r\nb\nc\rd", "Song", "Beat", "a\r\nBeat_[ProjectData]\r\nb\nc\rd"},
    {"KeepingTheMissingLastLineEnd", "a\nSong_[ProjectData]", "Song", "Beat", "a\nBeat_[ProjectData]"},
    {"KeepingOtherUnicodeForms", "e\u0301 \u00e9 \u212b Song_[ProjectData] \u1100\u1161", "Song", "Beat",
     "e\u0301 \u00e9 \u212b Beat_[ProjectData] \u1100\u1161"},
    {"KeepingNulBytes", std::string("\0Song_[ProjectData]\0", 20), "Song", "Beat",
     std::string("\0Beat_[ProjectData]\0", 20)},
    {"NothingForANameThatIsNotUtf8", "\u00e9_[ProjectData]", "\xe9", "Beat", "\u00e9_[ProjectData]"},
    {"ForANameOfSpecialCharacters", "a.*$1(_[ProjectData]", "a.*$1(", "b\\0", "b\\0_[ProjectData]"},
    {"ForTheSameName", "Song_[ProjectData]", "Song", "Song", "Song_[ProjectData]"},
};

INSTANTIATE_TEST_SUITE_P(Rewrites, ReferenceRewrite, ::testing::ValuesIn(rows),
                         [](const auto& test) { return std::string(test.param.fact); });

TEST_P(ReferenceRewrite, GivesTheExpectedText) {
    const auto& row = GetParam();
    EXPECT_EQ(testing::replacedText(row.text, row.oldName, row.newName, dataFolderSuffix), row.expected);
}

} // namespace
} // namespace tarvolt
