#include "tests/app/bridge/measures.h"

#include <gmock/gmock.h>

namespace tarvolt {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using testing::expectColour;
using ::testing::Ge;
using ::testing::Lt;
using testing::Measures;
using testing::SceneWindow;

class MeasureHeaderTest : public ::testing::Test {
protected:
    MeasureHeaderTest() { w.addProject("Blue Hour"); }

    SceneWindow w;
    Measures m{w};
};

TEST_F(MeasureHeaderTest, TheWindowHasItsSizes) {
    EXPECT_EQ(w.window->size(), QSize(800, 600));
    EXPECT_EQ(w.window->minimumSize(), QSize(700, 500));
    EXPECT_EQ(w.window->title(), "Tarvolt");
    EXPECT_GE(w.window->maximumWidth(), 100000);
}

TEST_F(MeasureHeaderTest, HeaderLineAndContentFollowWithoutGaps) {
    const QRectF header = w.box("headerView");
    EXPECT_EQ(header.topLeft(), QPointF(0, 0));
    EXPECT_EQ(header.width(), 800);
    EXPECT_EQ(m.down("headerView", "headerLine"), 0);
    EXPECT_EQ(m.down("headerLine", "contentArea"), 0);
    EXPECT_EQ(w.box("headerLine").width(), 800);
    EXPECT_EQ(w.box("headerLine").height(), 1);
    expectColour(m.colour("headerLine"), "#000000", 0.13);
    expectColour(w.window->color(), "#EFEFEF");
    EXPECT_EQ(w.box("contentArea").bottomRight(), QPointF(800, 600));
}

TEST_F(MeasureHeaderTest, TheHeaderShowsIconAndTitleBeforeAFolderIsChosen) {
    EXPECT_EQ(m.text("headerTitle"), "Tarvolt");
    for (const char* absent : {"headerPath", "headerActions", "badge", "rescanButton", "changeFolderButton"}) {
        EXPECT_TRUE(w.findAll(absent).empty()) << absent;
    }
    EXPECT_NEAR(m.centre("headerTitle"), m.centre("headerView"), 1);
    const double height = w.box("headerView").height();
    w.choose();
    EXPECT_EQ(w.box("headerView").height(), height) << "the line does not jump when the path comes";
}

TEST_F(MeasureHeaderTest, TheHeaderIsPaddedAndSpaced) {
    w.choose();
    EXPECT_THAT(m.padding("headerView", "headerRow"), ElementsAre(16, 12, 16, 12));
    EXPECT_EQ(w.box("headerSymbol").left(), 16);
    EXPECT_EQ(m.across("headerSymbol", "headerTitles"), 12);
    EXPECT_EQ(m.across("headerTitles", "headerGap"), 12);
    EXPECT_EQ(m.across("headerGap", "headerActions"), 12);
    EXPECT_EQ(m.down("headerTitle", "headerPath"), 1);
    EXPECT_EQ(w.box("headerTitle").left(), w.box("headerPath").left());
    EXPECT_EQ(m.across("badge", "rescanButton"), 8);
    EXPECT_EQ(m.across("rescanButton", "changeFolderButton"), 8);
    EXPECT_EQ(w.box("changeFolderButton").right(), 784);
    for (const char* item : {"headerSymbol", "headerTitles", "headerActions", "badge", "rescanButton"}) {
        EXPECT_NEAR(m.centre(item), m.centre("headerRow"), 1) << item;
    }
}

TEST_F(MeasureHeaderTest, TheHeaderHasItsFontsAndColours) {
    w.choose();
    EXPECT_EQ(m.property("headerSymbol", "symbol").toString(), "music.note.house.fill");
    EXPECT_EQ(m.colour("headerSymbol", "colour"), QColor("#D75600"));
    EXPECT_EQ(m.property("headerSymbol", "size").toInt(), testing::symbolSide(testing::title2));
    EXPECT_NEAR(m.textRatio("headerTitle"), testing::body, 0.01);
    EXPECT_EQ(m.font("headerTitle").weight(), QFont::Bold);
    EXPECT_EQ(m.colour("headerTitle"), QColor("#161616"));
    EXPECT_EQ(m.text("headerPath"), "/p");
    EXPECT_NEAR(m.textRatio("headerPath"), testing::caption, 0.01);
    EXPECT_EQ(m.colour("headerPath"), QColor("#606060"));
    EXPECT_EQ(m.text("badgeText"), "1 project");
    EXPECT_NEAR(m.textRatio("badgeText"), testing::caption, 0.01);
    EXPECT_EQ(m.colour("badgeText"), QColor("#606060"));
    EXPECT_EQ(m.property("rescanButton", "symbol").toString(), "arrow.clockwise");
    EXPECT_EQ(m.text("changeFolderButton"), "Change Folder");
}

TEST_F(MeasureHeaderTest, TheBadgeIsPaddedRoundedAndTinted) {
    w.choose();
    // The badge's width is a whole number of pixels; its text's need not be.
    EXPECT_THAT(m.padding("badge", "badgeText"), ElementsAre(8, 4, AllOf(Ge(8), Lt(9)), 4));
    EXPECT_THAT(m.padding("badge", "badgeFill"), ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(m.property("badgeFill", "radius").toDouble(), 6);
    EXPECT_EQ(m.colour("badgeFill"), QColor("#FF7A00"));
    EXPECT_DOUBLE_EQ(m.opacity("badgeFill"), 0.1);
    EXPECT_EQ(m.opacity("badgeText"), 1);
}

TEST_F(MeasureHeaderTest, RescanIsDisabledDuringAScanAndChangeFolderIsNot) {
    w.choose();
    EXPECT_TRUE(m.property("rescanButton", "enabled").toBool());
    w.bridge->rescan();
    QCoreApplication::processEvents();
    EXPECT_FALSE(m.property("rescanButton", "enabled").toBool());
    EXPECT_TRUE(m.property("changeFolderButton", "enabled").toBool());
    EXPECT_EQ(m.text("badgeText"), "0 projects");
    w.settle();
    EXPECT_TRUE(m.property("rescanButton", "enabled").toBool());
}

TEST_F(MeasureHeaderTest, ALongPathIsElidedInItsMiddleAndPushesNothingOut) {
    const std::string folder = "/p/" + std::string(300, 'x');
    w.scene.disk->addFolder(folder);
    w.scene.panel->answer = folder;
    w.bridge->selectFolder();
    QCoreApplication::processEvents();
    w.settle();
    EXPECT_EQ(m.property("headerPath", "elide").toInt(), Qt::ElideMiddle);
    EXPECT_TRUE(m.property("headerPath", "truncated").toBool());
    EXPECT_EQ(m.property("headerPath", "lineCount").toInt(), 1);
    EXPECT_EQ(w.box("changeFolderButton").right(), 784);
    EXPECT_EQ(m.across("headerTitles", "headerActions"), 24);
}

} // namespace
} // namespace tarvolt
