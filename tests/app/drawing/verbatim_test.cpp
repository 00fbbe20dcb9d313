#include "app/drawing/platform_style.h"
#include "tests/app/bridge/measures.h"

#include <QGlyphRun>
#include <QTextLayout>

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

using testing::Measures;
using testing::SceneWindow;

QList<quint32> glyphs(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QList<quint32> all;
    for (const QGlyphRun& run : layout.glyphRuns()) {
        all += run.glyphIndexes();
    }
    return all;
}

TEST(VerbatimTest, DrawsEachCharacterAsItStandsAlone) {
    for (const char* family : {"Inter", "JetBrains Mono"}) {
        const QFont font(family, 11);
        for (const char* text :
             {"uc1x7 3x4", "a->b", "a != b <= c", "x -- y", "www", "(c) fi fl ffi", "Žluťoučký 10×"}) {
            QList<quint32> alone;
            for (const QChar unit : QString::fromUtf8(text)) {
                alone += glyphs(unit, font);
            }
            EXPECT_EQ(glyphs(text, PlatformStyle::verbatim(font, text)), alone) << family << ": " << text;
        }
    }
}

TEST(VerbatimTest, LeavesTextAloneIfItsCharactersDependOnTheirNeighbours) {
    const QFont font("Inter", 11);
    for (const char* text : {"\u0645\u0634\u0631\u0648\u0639", "e\u0301", "\u0939\u093F\u0928", "\u1112\u1161\u11AB",
                             "\U0001F468\u200D\U0001F469", "1\uFE0F\u20E3", "\u304B\u3099"}) {
        EXPECT_EQ(PlatformStyle::verbatim(font, text), font) << text;
    }
}

TEST(VerbatimTest, IsHowNamesPathsAndMessagesAreDrawn) {
    SceneWindow w;
    const Measures m{w};
    w.addProjects(6);
    w.choose();
    w.bridge->projects()->beginRename(0);
    w.bridge->sheet()->setNewName("Song 1");
    w.bridge->sheet()->pressRename();
    w.settle();
    for (const char* text : {"headerPath", "searchField", "rowName", "logMessage", "sheetCurrentName", "newNameField",
                             "previewOldName", "previewNewName", "alertMessage"}) {
        EXPECT_TRUE(m.font(text).styleStrategy() & QFont::PreferNoShaping) << text;
    }
}

} // namespace
} // namespace tarvolt
