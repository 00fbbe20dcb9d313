#include "tests/app/bridge/measures.h"

#include <gmock/gmock.h>

namespace tarvolt {
namespace {

using ::testing::ElementsAre;
using testing::expectColour;
using testing::Measures;
using testing::SceneWindow;

class MeasureSheetTest : public ::testing::Test {
protected:
    MeasureSheetTest() {
        w.addProject("Blue Hour");
        w.addProject("Sketch", false);
        w.choose();
    }

    void open(int row, const QString& newName) {
        w.bridge->projects()->beginRename(row);
        w.bridge->sheet()->setNewName(newName);
        w.settle();
    }

    SceneWindow w;
    Measures m{w};
};

TEST_F(MeasureSheetTest, TheSheetHasItsSizePaddingAndSpacings) {
    open(0, "Red Hour");
    const QRectF sheet = w.box("panelFace");
    EXPECT_EQ(sheet.size(), QSizeF(480, 380));
    EXPECT_EQ(sheet.center(), QPointF(400, 300));
    EXPECT_THAT(m.padding("panelFace", "renameForm"), ElementsAre(24, 24, 24, 24));
    EXPECT_EQ(w.box("sheetTitle").topLeft(), sheet.topLeft() + QPointF(24, 24));
    EXPECT_EQ(m.down("sheetTitle", "sheetCurrentName"), 4);
    EXPECT_EQ(m.down("sheetTitleBlock", "sheetNameBlock"), 20);
    EXPECT_EQ(m.down("sheetFieldLabel", "newNameField"), 6);
    EXPECT_EQ(m.down("sheetNameBlock", "previewBlock"), 20);
    EXPECT_EQ(m.down("previewTitle", "previewBox"), 8);
    EXPECT_EQ(m.down("previewBlock", "sheetGap"), 20);
    EXPECT_EQ(m.down("sheetGap", "sheetButtons"), 20);
    EXPECT_EQ(w.box("sheetButtons").bottom(), sheet.bottom() - 24);
    EXPECT_EQ(w.box("renameButton").right(), sheet.right() - 24);
    EXPECT_EQ(m.across("cancelButton", "renameButton"), 8);
}

TEST_F(MeasureSheetTest, ThePreviewBoxHasItsPaddingSpacingsAndFill) {
    open(0, "Red Hour");
    EXPECT_THAT(m.padding("previewBox", "previewLines"), ElementsAre(12, 12, 12, 12));
    EXPECT_EQ(m.property("previewFill", "radius").toDouble(), 8);
    EXPECT_DOUBLE_EQ(m.opacity("previewFill"), 0.5);
    expectColour(m.colour("previewFill"), "#000000", 0.11);
    EXPECT_EQ(m.down("previewFileRow", "previewFolderRow"), 6);
    EXPECT_EQ(m.down("previewFolderRow", "previewNote"), 6);
    EXPECT_EQ(m.across("previewOldName", "previewArrow"), 8);
    EXPECT_EQ(m.across("previewArrow", "previewNewName"), 8);
    EXPECT_NEAR(m.centre("previewOldName"), m.centre("previewArrow"), 0.5);
}

TEST_F(MeasureSheetTest, ThePreviewHasItsTextsFontsAndColours) {
    open(0, "Red Hour");
    EXPECT_EQ(m.text("previewTitle"), "PREVIEW");
    EXPECT_EQ(m.font("previewTitle"), m.font("sheetFieldLabel"));
    expectColour(m.colour("previewTitle"), "#606060");
    EXPECT_EQ(m.text("previewOldName"), "Blue Hour.xpj");
    EXPECT_EQ(m.text("previewNewName"), "Red Hour.xpj");
    EXPECT_NEAR(m.textRatio("previewOldName"), testing::caption, 0.01);
    EXPECT_EQ(m.colour("previewOldName"), QColor("#C01C28"));
    EXPECT_DOUBLE_EQ(m.opacity("previewOldName"), 0.7);
    EXPECT_TRUE(m.isMonospaced("previewOldName"));
    EXPECT_NEAR(m.textRatio("previewNewName"), testing::caption, 0.01);
    EXPECT_TRUE(m.isMonospaced("previewNewName"));
    EXPECT_EQ(m.colour("previewNewName"), QColor("#1A7533"));
    EXPECT_EQ(m.property("previewArrow", "symbol").toString(), "arrow.right");
    EXPECT_EQ(m.property("previewArrow", "size").toInt(), 14);
    EXPECT_EQ(m.colour("previewArrow", "colour"), QColor("#606060"));
    EXPECT_EQ(w.findAll("previewOldName").size(), 2U);
    EXPECT_EQ(w.findAll("previewOldName")[1]->property("text").toString(), "Blue Hour_[ProjectData]");
    EXPECT_EQ(w.findAll("previewNewName")[1]->property("text").toString(), "Red Hour_[ProjectData]");
    EXPECT_EQ(m.text("previewNote"), "+ Updates file paths inside .xpj");
    EXPECT_NEAR(m.textRatio("previewNote"), testing::caption, 0.01);
    EXPECT_FALSE(m.isMonospaced("previewNote"));
    expectColour(m.colour("previewNote"), "#606060");
}

TEST_F(MeasureSheetTest, ThePreviewOfAProjectWithoutDataFolderHasOneLineAndTheNote) {
    open(1, " ");
    EXPECT_EQ(w.findAll("previewOldName").size(), 1U);
    EXPECT_EQ(m.text("previewNewName"), " .xpj");
    EXPECT_EQ(m.down("previewFileRow", "previewNote"), 6);
}

TEST_F(MeasureSheetTest, AnOldNameTakesItsOwnWidthOrHalfOrWhatTheNewNameLeaves) {
    const QString longName = "The Long Way Home From The Late Show (instrumental take 3)";
    w.addProject(longName.toStdString());
    w.bridge->rescan();
    w.settle();
    open(2, longName + " again");
    const auto width = [this](const QString& name) { return w.box(name).width(); };
    const auto rename = [this](const QString& name) {
        w.find("newNameField")->setProperty("text", name);
        w.settle();
    };
    const double half = (width("previewFileRow") - width("previewArrow")) / 2 - 8;
    EXPECT_NEAR(width("previewOldName"), half, 0.01) << "neither has room";
    rename("Blue");
    EXPECT_GT(width("previewOldName"), half + 50) << "the new one leaves more";
    EXPECT_EQ(m.lines("previewNewName"), 1);
    EXPECT_NEAR(width("previewOldName") + width("previewNewName"), 2 * half, 0.01);
    w.press(Qt::Key_Escape);
    w.settle();
    open(0, "Red Hour");
    EXPECT_NEAR(width("previewOldName"), w.find("previewOldName")->implicitWidth(), 1) << "both have room";
    rename(longName);
    EXPECT_NEAR(width("previewOldName"), w.find("previewOldName")->implicitWidth(), 1) << "the old one has room";
    EXPECT_EQ(m.lines("previewOldName"), 1);
}

TEST_F(MeasureSheetTest, EachLineOfAnOldNameIsStruckThroughAndStaysLegible) {
    w.addProject("The Long Way Home From The Late Show (instrumental take 3)");
    w.bridge->rescan();
    w.settle();
    open(2, "The Long Way Home From The Late Show (instrumental take 4)");
    QQuickItem* name = w.find("previewOldName");
    const auto strikes = w.findAll("strike");
    ASSERT_EQ(m.lines("previewOldName"), 3);
    ASSERT_EQ(strikes.size(), 3U + 3U) << "of the file's name and of the folder's";
    const double line = name->height() / 3;
    for (int i = 0; i < 3; ++i) {
        const QRectF strike = name->mapRectFromScene(SceneWindow::boxOf(strikes[static_cast<std::size_t>(i)]));
        EXPECT_EQ(strike.left(), 0);
        EXPECT_EQ(strike.height(), 1);
        EXPECT_NEAR(strike.top(), (i + 0.55) * line, 0.15 * line) << i;
    }
    EXPECT_GT(strikes[0]->width(), 2 * strikes[2]->width()) << "no longer than the letters";
    expectColour(strikes[0]->property("color").value<QColor>(), "#C01C28");
    EXPECT_EQ(strikes[0]->opacity(), 0.5) << "fainter than the letters";
}

TEST_F(MeasureSheetTest, ThePreviewScrollsOnlyIfItDoesNotFit) {
    w.bridge->projects()->beginRename(0);
    bool hidden = false;
    for (int length = 10; !hidden; length += 10) {
        w.bridge->sheet()->setNewName(QString(length, u'x'));
        w.settle();
        hidden = w.box("previewNote").bottom() > w.box("previewBox").bottom() - 6;
        EXPECT_EQ(w.findAll("scrollThumb").size(), hidden ? 1U : 0U) << length;
        EXPECT_EQ(m.property("previewArea", "activeFocusOnTab").toBool(), hidden) << length;
    }
}

TEST_F(MeasureSheetTest, TheTitlesFieldAndButtonsHaveTheirFontsColoursAndTexts) {
    open(0, "Red Hour");
    EXPECT_EQ(m.text("sheetTitle"), "Rename Project");
    EXPECT_NEAR(m.textRatio("sheetTitle"), testing::title2, 0.01);
    EXPECT_EQ(m.font("sheetTitle").weight(), QFont::Bold);
    expectColour(m.colour("sheetTitle"), "#161616");
    EXPECT_EQ(m.text("sheetCurrent"), "Current: ");
    expectColour(m.colour("sheetCurrent"), "#606060");
    EXPECT_EQ(m.text("sheetCurrentName"), "Blue Hour");
    EXPECT_EQ(m.colour("sheetCurrentName"), QColor("#606060"));
    EXPECT_NEAR(m.textRatio("sheetCurrentName"), testing::body, 0.01);
    EXPECT_TRUE(m.isMonospaced("sheetCurrentName"));
    EXPECT_EQ(m.property("sheetCurrentName", "elide").toInt(), Qt::ElideMiddle);
    EXPECT_EQ(m.text("sheetFieldLabel"), "NEW NAME");
    EXPECT_EQ(m.font("sheetFieldLabel").weight(), QFont::DemiBold);
    EXPECT_NEAR(m.textRatio("sheetFieldLabel"), testing::caption, 0.01);
    EXPECT_NEAR(m.font("sheetFieldLabel").letterSpacing(), 0.3, 0.01);
    expectColour(m.colour("sheetFieldLabel"), "#606060");
    EXPECT_NEAR(m.textRatio("newNameField"), testing::body, 0.01);
    EXPECT_TRUE(m.isMonospaced("newNameField"));
    EXPECT_EQ(m.text("cancelButton"), "Cancel");
    EXPECT_EQ(m.text("renameButton"), "Rename");
}

TEST_F(MeasureSheetTest, TheCurrentNameIsATextOfItsOwnAndSoOrderedAsInItsRow) {
    const auto baseline = [this](const QString& text) {
        return w.box(text).top() + m.property(text, "baselineOffset").toDouble();
    };
    for (const char* name : {"Blue Hour", "\u05D0\u05D1 with English 12", "\u0E40\u0E1E\u0E25\u0E07"}) {
        w.addProject(name);
        w.bridge->rescan();
        w.settle();
        open(static_cast<int>(w.findAll("rowName").size()) - 1, "x");
        EXPECT_EQ(m.text("sheetCurrentName"), w.findAll("rowName").back()->property("text").toString());
        const double gap = QFontMetricsF(m.font("sheetCurrent")).horizontalAdvance("Current: ");
        EXPECT_EQ(w.box("sheetCurrent").left(), w.box("sheetTitle").left());
        EXPECT_NEAR(w.box("sheetCurrentName").left() - w.box("sheetTitle").left(), gap, 0.5) << name;
        EXPECT_EQ(baseline("sheetCurrent"), baseline("sheetCurrentName")) << name;
        EXPECT_EQ(w.box("sheetCurrentName").right(), w.box("newNameField").right());
        w.press(Qt::Key_Escape);
        w.settle();
    }
}

TEST_F(MeasureSheetTest, RenameIsEnabledAndThePreviewShownOnlyForADifferentName) {
    const auto offered = [&] { return m.property("renameButton", "enabled").toBool(); };
    const auto previewed = [&] { return !w.findAll("previewBlock").empty(); };
    for (const char* same : {"Blue Hour", ""}) {
        open(0, same);
        EXPECT_FALSE(offered()) << same;
        EXPECT_FALSE(previewed()) << same;
        w.bridge->sheet()->cancelRename();
        w.settle();
    }
    for (const char* other : {"Blue Hour ", " ", "blue hour", "x"}) {
        open(0, other);
        EXPECT_TRUE(offered()) << other;
        EXPECT_TRUE(previewed()) << other;
        w.bridge->sheet()->cancelRename();
        w.settle();
    }
}

TEST_F(MeasureSheetTest, ALongPreviewScrollsAndStopsFortyAboveTheButtons) {
    open(0, QString(240, u'x'));
    EXPECT_EQ(m.down("previewBox", "sheetButtons"), 40);
    EXPECT_GT(m.property("previewArea", "contentHeight").toDouble(), w.box("previewBox").height());
    EXPECT_EQ(w.box("sheetButtons").bottom(), w.box("panelFace").bottom() - 24);
    EXPECT_EQ(w.box("panelFace").size(), QSizeF(480, 380));
    const QRectF box = w.box("previewBox");
    EXPECT_EQ(w.box("scrollThumb"), QRectF(box.right() - 8, box.top() + 2, 6, box.height() - 4));
}

TEST_F(MeasureSheetTest, TheAlertHasItsSizesAndTexts) {
    open(0, "Sketch");
    w.bridge->sheet()->pressRename();
    w.settle();
    const auto faces = w.findAll("panelFace");
    ASSERT_EQ(faces.size(), 2U);
    const QRectF alert = SceneWindow::boxOf(faces[1]);
    EXPECT_EQ(alert.width(), 320);
    EXPECT_NEAR(alert.center().x(), 400, 0.5);
    EXPECT_NEAR(alert.center().y(), 300, 0.5);
    EXPECT_EQ(m.text("alertTitle"), "Rename Failed");
    EXPECT_EQ(m.text("alertMessage"), "A project named \"Sketch\" already exists.");
    EXPECT_NEAR(m.textRatio("alertTitle"), testing::body, 0.01);
    EXPECT_EQ(m.font("alertTitle").weight(), QFont::Bold);
    EXPECT_NEAR(m.textRatio("alertMessage"), testing::body, 0.01);
    EXPECT_DOUBLE_EQ(m.property("alertMessage", "lineHeight").toDouble(), 1.1);
    for (const char* text : {"alertTitle", "alertMessage"}) {
        EXPECT_EQ(m.property(text, "horizontalAlignment").toInt(), Qt::AlignHCenter) << text;
        expectColour(m.colour(text), "#161616");
    }
    EXPECT_EQ(w.box("alertTitle").top() - alert.top(), 20);
    EXPECT_EQ(m.down("alertTitle", "alertMessage"), 6);
    EXPECT_EQ(m.down("alertTitle", "alertArea"), 6);
    EXPECT_EQ(m.down("alertArea", "alertButton"), 18);
    EXPECT_TRUE(w.findAll("scrollThumb").empty());
    EXPECT_EQ(alert.bottom() - w.box("alertButton").bottom(), 20);
    EXPECT_EQ(w.box("alertButton").width(), 280);
    EXPECT_EQ(m.text("alertButton"), "OK");
}

TEST_F(MeasureSheetTest, ALongMessageScrollsInTheAlertAndKeepsTheButtonVisible) {
    w.window->resize(700, 500);
    w.view->errorMessage.set("Failed to write file: " + std::string(5000, 'x') + ".xpj");
    w.view->showError.set(true);
    w.settle();
    EXPECT_EQ(w.box("panelFace"), QRectF(190, 12, 320, 476));
    EXPECT_EQ(w.box("alertButton").bottom(), 500 - 12 - 20);
    EXPECT_EQ(m.down("alertArea", "alertButton"), 18);
    EXPECT_EQ(w.findAll("scrollThumb").size(), 1U);
    EXPECT_EQ(w.focused(), "alertButton");
    const auto hidden = [&] { return w.box("alertMessage").bottom() - w.box("alertArea").bottom(); };
    EXPECT_GT(hidden(), 500);
    w.press(Qt::Key_End);
    EXPECT_NEAR(hidden(), 0, 1);
    w.press(Qt::Key_Escape);
    w.settle();
    w.view->showError.set(true);
    w.settle();
    EXPECT_EQ(w.box("alertMessage").top(), w.box("alertArea").top()) << "shown from its beginning again";
}

TEST_F(MeasureSheetTest, TheAlertSaysUnknownErrorWithoutAMessage) {
    w.view->showError.set(true);
    w.settle();
    EXPECT_EQ(m.text("alertTitle"), "Rename Failed");
    EXPECT_EQ(m.text("alertMessage"), "Unknown error");
    w.click("alertButton");
    w.settle();
    EXPECT_FALSE(w.view->showError.get());
    EXPECT_TRUE(w.findAll("alertMessage").empty());
}

} // namespace
} // namespace tarvolt
