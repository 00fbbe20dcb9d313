#include "app/bridge/view_bridge.h"

#include "tests/app/bridge/print_qt.h"
#include "tests/support/scene.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace tarvolt {
namespace {

using namespace std::chrono_literals;

class ViewBridgeTest : public ::testing::Test {
protected:
    ViewBridgeTest() {
        scene.disk->addFolder("/p");
        add("Blue Hour");
        add("Midnight Ferry");
        scene.panel->answer = "/p";
    }

    void add(const std::string& name) { scene.disk->addFile("/p/" + name + ".xpj", "x"); }

    void choose() {
        bridge.selectFolder();
        settle();
    }

    void settle() {
        scene.settle();
        QCoreApplication::processEvents();
    }

    void pass(std::chrono::milliseconds time) {
        scene.mainQueue->advance(time);
        settle();
    }

    int renames() const {
        int count = 0;
        for (const auto& line : scene.disk->traffic()) {
            count += line.starts_with("create ") ? 1 : 0;
        }
        return count;
    }

    testing::Scene scene;
    std::shared_ptr<ContentView> view = ContentView::create(scene.services());
    ViewBridge bridge{view, scene.services()};
};

TEST_F(ViewBridgeTest, StartsWithTheFolderPicker) {
    EXPECT_EQ(bridge.area(), ViewBridge::FolderPicker);
    EXPECT_FALSE(bridge.hasFolder());
    EXPECT_FALSE(bridge.sheetOpen());
    EXPECT_FALSE(bridge.alertOpen());
    EXPECT_EQ(bridge.projectCountText(), "0 projects");
    EXPECT_EQ(bridge.alertMessage(), "Unknown error");
}

TEST_F(ViewBridgeTest, FollowsAScanAtOnceWhereItBeginsAndInTheNextTurnWhereItEnds) {
    bridge.selectFolder();
    EXPECT_TRUE(bridge.scanning());
    EXPECT_EQ(bridge.area(), ViewBridge::ProjectList) << "never the empty state in between";
    EXPECT_EQ(bridge.folderPath(), "/p");
    scene.settle();
    EXPECT_TRUE(bridge.scanning());
    EXPECT_EQ(bridge.projects()->rowCount(), 0);
    QCoreApplication::processEvents();
    EXPECT_FALSE(bridge.scanning());
    EXPECT_EQ(bridge.projects()->rowCount(), 2);
    EXPECT_EQ(bridge.log()->rowCount(), 2);
    EXPECT_EQ(bridge.projectCountText(), "2 projects");
}

TEST_F(ViewBridgeTest, RedrawsTheListOnceForAllChangesOfATurn) {
    choose();
    QSignalSpy resets(bridge.projects(), &QAbstractItemModel::modelReset);
    bridge.setSearchText("b");
    bridge.setSearchText("bl");
    bridge.setSearchText("blu");
    EXPECT_EQ(resets.size(), 0);
    settle();
    EXPECT_EQ(resets.size(), 1);
    EXPECT_EQ(bridge.projects()->rowCount(), 1);
    EXPECT_EQ(bridge.projectCountText(), "2 projects");
}

TEST_F(ViewBridgeTest, OpensTheSheetAtOnceWithTheRowsOwnRecord) {
    choose();
    QSignalSpy opened(&bridge, &ViewBridge::sheetOpenChanged);
    bridge.beginRename(1);
    EXPECT_EQ(opened.size(), 1);
    EXPECT_TRUE(bridge.sheetOpen());
    EXPECT_EQ(bridge.newName(), "Midnight Ferry");
    EXPECT_EQ(bridge.currentNameText(), "Current: Midnight Ferry");
    EXPECT_FALSE(bridge.offersRename());
    bridge.beginRename(0);
    EXPECT_EQ(bridge.newName(), "Midnight Ferry") << "one sheet at a time";
}

TEST_F(ViewBridgeTest, ShowsThePreviewOfTheTypedName) {
    choose();
    bridge.beginRename(0);
    bridge.setNewName(" New ");
    EXPECT_TRUE(bridge.offersRename());
    EXPECT_EQ(bridge.oldFileName(), "Blue Hour.xpj");
    EXPECT_EQ(bridge.newFileName(), " New .xpj");
    EXPECT_FALSE(bridge.hasDataFolder());
}

TEST_F(ViewBridgeTest, ShowsALineBreakAsABlankInThePreview) {
    choose();
    bridge.beginRename(0);
    bridge.setNewName("two\nlines");
    EXPECT_EQ(bridge.newFileName(), "two lines.xpj");
}

TEST_F(ViewBridgeTest, MakesOneRenameOfTwoPresses) {
    choose();
    bridge.beginRename(0);
    bridge.setNewName("Red Hour");
    bridge.submitNewName();
    bridge.submitNewName();
    bridge.pressRename();
    EXPECT_EQ(renames(), 1);
    EXPECT_FALSE(bridge.sheetOpen());
    EXPECT_FALSE(bridge.alertOpen());
}

TEST_F(ViewBridgeTest, HandsNothingOnWhileTheAlertIsShown) {
    choose();
    bridge.beginRename(0);
    bridge.setNewName("Midnight Ferry");
    bridge.pressRename();
    ASSERT_TRUE(bridge.alertOpen());
    EXPECT_EQ(bridge.alertMessage(), "A project named \"Midnight Ferry\" already exists.");
    bridge.setNewName("Other");
    bridge.pressRename();
    bridge.submitNewName();
    bridge.cancelRename();
    EXPECT_TRUE(bridge.sheetOpen());
    EXPECT_EQ(renames(), 0);
    bridge.dismissAlert();
    EXPECT_FALSE(bridge.alertOpen());
    EXPECT_TRUE(bridge.sheetOpen());
}

TEST_F(ViewBridgeTest, SubmitsWithoutTheButtonsTestButPressesOnlyAnEnabledOne) {
    choose();
    bridge.beginRename(0);
    bridge.pressRename();
    EXPECT_FALSE(bridge.alertOpen());
    bridge.submitNewName();
    EXPECT_TRUE(bridge.alertOpen());
}

TEST_F(ViewBridgeTest, DoesNothingBehindTheSheet) {
    choose();
    const auto before = scene.disk->traffic().size();
    bridge.beginRename(0);
    bridge.rescan();
    bridge.selectFolder();
    settle();
    EXPECT_EQ(scene.disk->traffic().size(), before);
    EXPECT_EQ(scene.panel->asked.size(), 1U);
}

TEST_F(ViewBridgeTest, DoesNothingBehindTheFolderPanel) {
    choose();
    const auto before = scene.disk->traffic().size();
    scene.panel->answer = std::nullopt;
    scene.panel->whileOpen = [&] {
        bridge.beginRename(0);
        bridge.rescan();
        bridge.selectFolder();
    };
    bridge.selectFolder();
    settle();
    EXPECT_FALSE(bridge.sheetOpen());
    EXPECT_EQ(scene.disk->traffic().size(), before);
    EXPECT_EQ(scene.panel->asked.size(), 2U);
    bridge.beginRename(0);
    EXPECT_TRUE(bridge.sheetOpen()) << "once the panel is closed";
}

TEST_F(ViewBridgeTest, WithdrawsTheFolderPanel) {
    scene.panel->answer = std::nullopt;
    scene.panel->whileOpen = [&] {
        EXPECT_TRUE(bridge.panelOpen());
        bridge.withdrawPanel();
    };
    QSignalSpy changed(&bridge, &ViewBridge::panelOpenChanged);
    bridge.selectFolder();
    EXPECT_EQ(scene.panel->withdrawn, 1);
    EXPECT_FALSE(bridge.panelOpen());
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(ViewBridgeTest, DoesNotStartASecondScanByTheButton) {
    bridge.selectFolder();
    bridge.rescan();
    settle();
    EXPECT_EQ(bridge.log()->rowCount(), 2);
}

TEST_F(ViewBridgeTest, IgnoresTypingOnceTheSheetIsClosed) {
    choose();
    bridge.beginRename(0);
    bridge.cancelRename();
    bridge.setNewName("late");
    EXPECT_EQ(view->newName.get(), "Blue Hour");
}

TEST_F(ViewBridgeTest, EndsALoneSurrogateAsANameThatCannotBeEncoded) {
    choose();
    bridge.beginRename(0);
    bridge.setNewName(QStringLiteral("a") + QChar(u'\xD800'));
    EXPECT_EQ(bridge.newName(), QStringLiteral("a") + QChar(u'\xD800'));
    bridge.pressRename();
    EXPECT_EQ(bridge.alertMessage(), "Failed to write file: Could not encode updated XML");
}

TEST_F(ViewBridgeTest, TellsTheRowOfTheNewNameAfterTheRescan) {
    choose();
    QSignalSpy listed(&bridge, &ViewBridge::renamedProjectListed);
    bridge.beginRename(0);
    bridge.setNewName("  Zebra ");
    bridge.pressRename();
    pass(499ms);
    EXPECT_EQ(listed.size(), 0);
    pass(1ms);
    ASSERT_EQ(listed.size(), 1);
    EXPECT_EQ(listed.at(0).at(0).toInt(), 1);
    bridge.rescan();
    pass(5s);
    EXPECT_EQ(listed.size(), 1) << "only the rename's own rescan moves the focus";
}

TEST_F(ViewBridgeTest, TellsOfAScanOfItsOwnBeforeTheRescanNothing) {
    choose();
    QSignalSpy listed(&bridge, &ViewBridge::renamedProjectListed);
    bridge.beginRename(0);
    bridge.setNewName("Zebra");
    bridge.pressRename();
    bridge.rescan();
    settle();
    EXPECT_EQ(listed.size(), 0);
    pass(500ms);
    EXPECT_EQ(listed.size(), 1);
}

TEST_F(ViewBridgeTest, TellsTheListWhereTheNewNameIsNotListed) {
    choose();
    QSignalSpy listed(&bridge, &ViewBridge::renamedProjectListed);
    bridge.setSearchText("Blue");
    settle();
    bridge.beginRename(0);
    bridge.setNewName("Zebra");
    bridge.pressRename();
    pass(500ms);
    ASSERT_EQ(listed.size(), 1);
    EXPECT_EQ(listed.at(0).at(0).toInt(), -1);
}

TEST_F(ViewBridgeTest, HighlightsUntilTheRescanBringsNewRecords) {
    choose();
    bridge.beginRename(0);
    bridge.setNewName("Red Hour");
    bridge.pressRename();
    settle();
    const auto renamed = [&](int row) {
        return bridge.projects()->data(bridge.projects()->index(row), ProjectListModel::renamedRole).toBool();
    };
    EXPECT_TRUE(renamed(0));
    pass(500ms);
    EXPECT_FALSE(renamed(0));
    EXPECT_FALSE(renamed(1));
}

TEST_F(ViewBridgeTest, OutlivesItsQueueAndIsOutlivedByIt) {
    auto other = ContentView::create(scene.services());
    {
        ViewBridge shortLived(other, scene.services());
        shortLived.selectFolder();
        settle();
        shortLived.beginRename(0);
        shortLived.setNewName("Red Hour");
        shortLived.pressRename();
    }
    pass(5s);
    EXPECT_EQ(other->scanner->projects.get().size(), 2U);
}

} // namespace
} // namespace tarvolt
