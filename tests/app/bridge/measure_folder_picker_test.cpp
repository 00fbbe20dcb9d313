#include "tests/app/bridge/measures.h"

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

using testing::expectColour;
using testing::Measures;
using testing::SceneWindow;

class MeasureFolderPickerTest : public ::testing::Test {
protected:
    SceneWindow w;
    Measures m{w};
};

TEST_F(MeasureFolderPickerTest, HasItsOrderSpacingsAndEqualGaps) {
    EXPECT_EQ(m.down("pickerTopGap", "pickerSymbol"), 16);
    EXPECT_EQ(m.down("pickerSymbol", "pickerTitle"), 16);
    EXPECT_EQ(m.down("pickerTitle", "pickerText"), 16);
    EXPECT_NEAR(m.down("pickerText", "selectFolderButton"), 16, 0.5);
    EXPECT_EQ(m.down("selectFolderButton", "pickerBottomGap"), 16);
    EXPECT_EQ(m.down("pickerBottomGap", "privacyNote"), 16);
    EXPECT_NEAR(w.box("pickerTopGap").height(), w.box("pickerBottomGap").height(), 1);
    EXPECT_EQ(w.box("privacyNote").bottom(), 580);
    EXPECT_EQ(m.across("privacySymbol", "privacyText"), 4);
    for (const char* item : {"pickerSymbol", "pickerTitle", "pickerText", "selectFolderButton", "privacyNote"}) {
        EXPECT_NEAR(m.middle(item), 400, 0.5) << item;
    }
}

TEST_F(MeasureFolderPickerTest, HasItsTextsFontsAndColours) {
    EXPECT_EQ(m.property("pickerSymbol", "symbol").toString(), "folder.badge.plus");
    EXPECT_EQ(m.property("pickerSymbol", "size").toInt(), 62);
    EXPECT_EQ(m.colour("pickerSymbol", "colour"), QColor("#962C00"));
    EXPECT_DOUBLE_EQ(m.opacity("pickerSymbol"), 0.6);
    EXPECT_EQ(m.text("pickerTitle"), "Select Your MPC Projects Folder");
    EXPECT_NEAR(m.textRatio("pickerTitle"), testing::title3, 0.01);
    EXPECT_EQ(m.font("pickerTitle").weight(), QFont::DemiBold);
    expectColour(m.colour("pickerTitle"), "#161616");
    EXPECT_EQ(m.text("pickerText"),
              "Choose the folder that contains your .xpj files\nand their _[ProjectData] folders");
    EXPECT_EQ(m.lines("pickerText"), 2);
    EXPECT_DOUBLE_EQ(m.property("pickerText", "lineHeight").toDouble(), 1.15);
    EXPECT_EQ(m.property("pickerText", "horizontalAlignment").toInt(), Qt::AlignHCenter);
    EXPECT_NEAR(m.textRatio("pickerText"), testing::body, 0.01);
    EXPECT_EQ(m.colour("pickerText"), QColor("#606060"));
    EXPECT_EQ(m.text("selectFolderButton"), "Select Folder");
    EXPECT_EQ(m.property("selectFolderButton", "symbol").toString(), "folder");
    EXPECT_EQ(m.property("selectFolderButton", "leftPadding").toDouble(), 20);
    EXPECT_EQ(m.property("selectFolderButton", "rightPadding").toDouble(), 20);
    const QRectF label = SceneWindow::boxOf(w.findAll("buttonText").front());
    EXPECT_NEAR(label.top() - w.box("selectFolderButton").top(), 10, 0.5);
    EXPECT_NEAR(w.box("selectFolderButton").bottom() - label.bottom(), 10, 0.5);
    EXPECT_EQ(m.text("privacyText"), "Everything runs locally. No files are uploaded anywhere.");
    EXPECT_NEAR(m.textRatio("privacyText"), testing::caption, 0.01);
    EXPECT_EQ(m.colour("privacyText"), QColor("#606060"));
    EXPECT_EQ(m.property("privacySymbol", "symbol").toString(), "lock.shield.fill");
    EXPECT_EQ(m.property("privacySymbol", "size").toInt(), 14);
    EXPECT_EQ(m.colour("privacySymbol", "colour"), QColor("#606060"));
}

} // namespace
} // namespace tarvolt
