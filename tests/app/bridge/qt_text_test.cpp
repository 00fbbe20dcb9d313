#include "app/bridge/qt_text.h"

#include "foundation/text.h"
#include "tests/app/bridge/print_qt.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace tarvolt {
namespace {

TEST(QtTextTest, ShowsInvalidUtf8AsReplacementCharacters) {
    EXPECT_EQ(displayString("a\xFFz"), QStringLiteral("a\uFFFDz"));
    EXPECT_EQ(displayString("Žluťoučký 🎹"), QStringLiteral("Žluťoučký 🎹"));
}

TEST(QtTextTest, ShowsControlsAndLineBreaksAsSpacesOnOneLine) {
    EXPECT_EQ(singleLineString("a\nb\tc\r\x01\x7F"
                               "d"),
              QStringLiteral("a b c   d"));
    EXPECT_EQ(singleLineString("a\u2028b\u2029c\u0085d"), QStringLiteral("a b c d"));
    EXPECT_EQ(singleLineString("<b>שלום</b>"), QStringLiteral("<b>שלום</b>"));
}

TEST(QtTextTest, ConvertsOrdinaryTextToUtf8AndBack) {
    for (const char* text : {"", "Slow Glass", "Žluťoučký 🎹", "日本語", "e\u0301"}) {
        EXPECT_EQ(editedBytes("", QString::fromUtf8(text)), text);
        EXPECT_EQ(fieldString(text), QString::fromUtf8(text));
    }
}

TEST(QtTextTest, KeepsAByteOrderMarkAtTheStart) {
    const QString marked = QChar(u'\uFEFF') + QStringLiteral("Slow Glass");
    EXPECT_EQ(displayString("\uFEFFSlow Glass"), marked);
    EXPECT_EQ(fieldString(editedBytes("", marked)), marked);
}

TEST(QtTextTest, KeepsALoneSurrogateInvalid) {
    const QChar high(u'\xD83C');
    const QChar low(u'\xDFB9');
    const QString texts[] = {QString(high),
                             QString(low),
                             QStringLiteral("a") + high + QStringLiteral("b"),
                             QString(low) + high,
                             QString(high) + high + low,
                             QStringLiteral("é") + low};
    for (const QString& text : texts) {
        const std::string bytes = editedBytes("", text);
        EXPECT_FALSE(isValidUtf8(bytes));
        EXPECT_EQ(bytes.find('?'), std::string::npos);
        EXPECT_EQ(fieldString(bytes), text);
    }
    EXPECT_EQ(editedBytes("", QString(high)), "\xED\xA0\xBC");
    EXPECT_EQ(editedBytes("", QString(low)), "\xED\xBE\xB9");
}

TEST(QtTextTest, ShowsControlsAsSpacesInAFieldAndKeepsThemUntilEdited) {
    EXPECT_EQ(fieldString("two\nlines\t"), "two lines ");
    for (const auto& [typed, name] :
         {std::pair("two lines ", "two\nlines\t"), std::pair("two new lines ", "two\nnew lines\t"),
          std::pair("two line", "two\nline"), std::pair("twolines ", "twolines\t"), std::pair("", ""),
          std::pair(" ", "\t"), std::pair("2\n lines ", "2\n\nlines\t")}) {
        EXPECT_EQ(editedBytes("two\nlines\t", typed), name) << typed;
    }
    EXPECT_EQ(editedBytes("a\na\n", "a a a "), "a\na\na ");
    EXPECT_EQ(editedBytes("\n", "  "), "\n ");
}

TEST(QtTextTest, EditsOtherInvalidBytesAsReplacementCharacters) {
    EXPECT_EQ(fieldString("a\xFF"), QStringLiteral("a\uFFFD"));
    EXPECT_EQ(fieldString("\xED\xA0"), displayString("\xED\xA0"));
}

} // namespace
} // namespace tarvolt
