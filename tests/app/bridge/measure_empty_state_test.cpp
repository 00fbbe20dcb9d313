#include "tests/app/bridge/measures.h"

namespace tarvolt {
namespace {

using testing::Measures;
using testing::SceneWindow;

TEST(MeasureEmptyStateTest, HasItsOrderSpacingsTextsAndColours) {
    SceneWindow w;
    Measures m(w);
    w.choose();
    EXPECT_EQ(m.down("emptyTopGap", "emptySymbol"), 12);
    EXPECT_EQ(m.down("emptySymbol", "emptyTitle"), 12);
    EXPECT_EQ(m.down("emptyTitle", "emptyText"), 12);
    EXPECT_NEAR(m.down("emptyText", "chooseDifferentFolderButton"), 20, 0.5);
    EXPECT_EQ(m.down("chooseDifferentFolderButton", "emptyBottomGap"), 12);
    EXPECT_NEAR(w.box("emptyTopGap").height(), w.box("emptyBottomGap").height(), 1);
    for (const char* item : {"emptySymbol", "emptyTitle", "emptyText", "chooseDifferentFolderButton"}) {
        EXPECT_NEAR(m.middle(item), 400, 0.5) << item;
    }
    EXPECT_EQ(m.property("emptySymbol", "symbol").toString(), "magnifyingglass");
    EXPECT_EQ(m.property("emptySymbol", "size").toInt(), 46);
    EXPECT_EQ(m.colour("emptySymbol", "colour"), QColor("#232323"));
    EXPECT_DOUBLE_EQ(m.opacity("emptySymbol"), 0.5);
    EXPECT_EQ(m.text("emptyTitle"), "No MPC Projects Found");
    EXPECT_NEAR(m.textRatio("emptyTitle"), testing::title3, 0.01);
    EXPECT_EQ(m.font("emptyTitle").weight(), QFont::Normal);
    EXPECT_EQ(m.colour("emptyTitle"), QColor("#606060"));
    EXPECT_EQ(m.text("emptyText"), "Make sure you selected the folder that\ndirectly contains your .xpj files.");
    EXPECT_EQ(m.lines("emptyText"), 2);
    EXPECT_EQ(m.property("emptyText", "horizontalAlignment").toInt(), Qt::AlignHCenter);
    EXPECT_DOUBLE_EQ(m.property("emptyText", "lineHeight").toDouble(), 1.15);
    EXPECT_NEAR(m.textRatio("emptyText"), testing::body, 0.01);
    EXPECT_EQ(m.font("emptyText").weight(), QFont::Normal);
    EXPECT_EQ(m.colour("emptyText"), QColor("#4A4A4A"));
    EXPECT_DOUBLE_EQ(m.opacity("emptyText"), 0.8);
    EXPECT_EQ(m.text("chooseDifferentFolderButton"), "Choose Different Folder");
    EXPECT_EQ(w.box("chooseDifferentFolderButton").height(), 28) << "of the default size";
    EXPECT_TRUE(w.findAll("logView").empty());
    EXPECT_EQ(m.text("badgeText"), "0 projects");
}

} // namespace
} // namespace tarvolt
