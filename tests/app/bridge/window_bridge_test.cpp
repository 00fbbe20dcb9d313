#include "app/bridge/window_bridge.h"

#include "tests/app/bridge/print_qt.h"
#include "tests/support/scene.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <limits>
#include <new>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tarvolt {
namespace {

using namespace std::chrono_literals;

class WindowBridgeTest : public ::testing::Test {
protected:
    WindowBridgeTest() {
        scene.disk->addFolder("/p");
        add("Blue Hour");
        add("Midnight Ferry");
        scene.panel->answer = "/p";
    }

    void add(const std::string& name) { scene.disk->addFile("/p/" + name + ".xpj", "x"); }

    /// Asks for a folder, until the panel is closed.
    void selectFolder() {
        bridge.selectFolder();
        QCoreApplication::processEvents();
    }

    void choose() {
        selectFolder();
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
    WindowBridge bridge{view};
};

TEST_F(WindowBridgeTest, StartsWithTheFolderPicker) {
    EXPECT_EQ(bridge.area(), WindowBridge::FolderPicker);
    EXPECT_EQ(bridge.folderPath(), "");
    EXPECT_FALSE(bridge.sheet()->open());
    EXPECT_FALSE(bridge.sheet()->alertOpen());
    EXPECT_EQ(bridge.projectCountText(), "0 projects");
    EXPECT_EQ(bridge.sheet()->alertMessage(), "Unknown error");
}

TEST_F(WindowBridgeTest, ShowsTheStartOfAScanAtOnceAndItsEndInTheNextTurn) {
    std::vector<WindowBridge::Area> areas;
    QObject::connect(&bridge, &WindowBridge::changed, &bridge, [&] { areas.push_back(bridge.area()); });
    selectFolder();
    EXPECT_TRUE(bridge.scanning());
    EXPECT_EQ(bridge.folderPath(), "/p");
    EXPECT_EQ(areas.front(), WindowBridge::FolderPicker) << "while the panel is open";
    EXPECT_EQ(std::set(areas.begin() + 1, areas.end()), std::set{WindowBridge::ProjectList})
        << "never the empty state in between";
    areas.clear();
    scene.settle();
    EXPECT_TRUE(areas.empty());
    EXPECT_EQ(bridge.projects()->rowCount(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(areas, std::vector{WindowBridge::ProjectList}) << "once for all changes of the turn";
    EXPECT_FALSE(bridge.scanning());
    EXPECT_EQ(bridge.projects()->rowCount(), 2);
    EXPECT_EQ(bridge.log()->rowCount(), 2);
    EXPECT_EQ(bridge.projectCountText(), "2 projects");
}

TEST_F(WindowBridgeTest, RedrawsTheListOnceForAllChangesOfATurn) {
    choose();
    QSignalSpy resets(bridge.projects(), &QAbstractItemModel::modelReset);
    bridge.projects()->setSearchText("b");
    bridge.projects()->setSearchText("bl");
    bridge.projects()->setSearchText("blu");
    EXPECT_EQ(resets.size(), 0);
    settle();
    EXPECT_EQ(resets.size(), 1);
    EXPECT_EQ(bridge.projects()->rowCount(), 1);
    EXPECT_EQ(bridge.projectCountText(), "2 projects");
}

TEST_F(WindowBridgeTest, OpensTheSheetOverALongListWithoutFilteringItAgain) {
    std::vector<MPCProject> projects;
    for (int i = 0; i < 20000; ++i) {
        projects.emplace_back("Song " + std::to_string(i), "/p/x.xpj", std::nullopt, 0, 1);
    }
    view->scanner->projects.set(std::move(projects));
    settle();
    const auto quickest = [](auto&& task) {
        std::clock_t least = std::numeric_limits<std::clock_t>::max();
        for (int round = 0; round < 5; ++round) {
            const std::clock_t start = std::clock(); // processor time, whatever else the machine does
            task();
            least = std::min(least, std::clock() - start);
        }
        return least;
    };
    const auto filtering = quickest([&] { EXPECT_EQ(view->filteredProjects().size(), 20000U); });
    const auto opening = quickest([&] {
        bridge.projects()->beginRename(0);
        QCoreApplication::processEvents();
        bridge.sheet()->cancelRename();
        QCoreApplication::processEvents();
    });
    EXPECT_LT(opening, filtering);
}

TEST_F(WindowBridgeTest, ReportsEachOfItsOwnChangesOnce) {
    choose();
    QSignalSpy texts(bridge.sheet(), &SheetBridge::textsChanged);
    bridge.projects()->beginRename(0);
    EXPECT_EQ(texts.size(), 1) << "at once";
    bridge.sheet()->setNewName("Beat");
    EXPECT_EQ(texts.size(), 2);
    settle();
    EXPECT_EQ(texts.size(), 2) << "not again in the next turn";
    view->newName.set("Loop");
    EXPECT_EQ(texts.size(), 2);
    settle();
    EXPECT_EQ(texts.size(), 3) << "the state has changed by itself";
}

TEST_F(WindowBridgeTest, OpensTheSheetAtOnceWithTheRowsOwnRecord) {
    choose();
    QStringList told;
    QObject::connect(bridge.sheet(), &SheetBridge::textsChanged, &bridge, [&] { told.push_back("texts"); });
    QObject::connect(bridge.sheet(), &SheetBridge::openChanged, &bridge, [&] { told.push_back("open"); });
    bridge.projects()->beginRename(1);
    EXPECT_EQ(told, QStringList({"texts", "open"})) << "what opens has its texts";
    EXPECT_TRUE(bridge.sheet()->open());
    EXPECT_EQ(bridge.sheet()->newName(), "Midnight Ferry");
    EXPECT_EQ(bridge.sheet()->currentName(), "Midnight Ferry");
    EXPECT_FALSE(bridge.sheet()->offersRename());
    bridge.projects()->beginRename(0);
    EXPECT_EQ(bridge.sheet()->newName(), "Midnight Ferry") << "one sheet at a time";
}

TEST_F(WindowBridgeTest, ShowsThePreviewOfTheTypedName) {
    choose();
    bridge.projects()->beginRename(0);
    bridge.sheet()->setNewName(" New ");
    EXPECT_TRUE(bridge.sheet()->offersRename());
    EXPECT_EQ(bridge.sheet()->oldFileName(), "Blue Hour.xpj");
    EXPECT_EQ(bridge.sheet()->newFileName(), " New .xpj");
    EXPECT_EQ(bridge.sheet()->oldFolderName(), "");
    EXPECT_EQ(bridge.sheet()->newFolderName(), "");
}

TEST_F(WindowBridgeTest, ShowsALineBreakAsASpaceInThePreview) {
    choose();
    bridge.projects()->beginRename(0);
    bridge.sheet()->setNewName("two\nlines");
    EXPECT_EQ(bridge.sheet()->newFileName(), "two lines.xpj");
}

TEST_F(WindowBridgeTest, MakesOneRenameOfTwoPresses) {
    choose();
    bridge.projects()->beginRename(0);
    bridge.sheet()->setNewName("Red Hour");
    bridge.sheet()->submitNewName();
    bridge.sheet()->submitNewName();
    bridge.sheet()->pressRename();
    EXPECT_EQ(renames(), 1);
    EXPECT_FALSE(bridge.sheet()->open());
    EXPECT_EQ(bridge.sheet()->currentName(), "Blue Hour") << "while the sheet fades away";
    EXPECT_FALSE(bridge.sheet()->alertOpen());
}

TEST_F(WindowBridgeTest, IgnoresPressesInTheSheetWhileTheAlertIsOpen) {
    choose();
    bridge.projects()->beginRename(0);
    bridge.sheet()->setNewName("Midnight Ferry");
    bridge.sheet()->pressRename();
    ASSERT_TRUE(bridge.sheet()->alertOpen());
    EXPECT_EQ(bridge.sheet()->alertMessage(), "A project named \"Midnight Ferry\" already exists.");
    bridge.sheet()->setNewName("Other");
    bridge.sheet()->pressRename();
    bridge.sheet()->submitNewName();
    bridge.sheet()->cancelRename();
    EXPECT_TRUE(bridge.sheet()->open());
    EXPECT_EQ(renames(), 0);
    bridge.sheet()->dismissAlert();
    EXPECT_FALSE(bridge.sheet()->alertOpen());
    EXPECT_TRUE(bridge.sheet()->open());
}

TEST_F(WindowBridgeTest, SubmitsWhateverTheButtonsStateButPressesOnlyAnEnabledOne) {
    choose();
    bridge.projects()->beginRename(0);
    bridge.sheet()->pressRename();
    EXPECT_FALSE(bridge.sheet()->alertOpen());
    bridge.sheet()->submitNewName();
    EXPECT_TRUE(bridge.sheet()->alertOpen());
}

TEST_F(WindowBridgeTest, IgnoresPressesBehindTheSheet) {
    choose();
    const auto before = scene.disk->traffic().size();
    bridge.projects()->beginRename(0);
    bridge.rescan();
    selectFolder();
    settle();
    EXPECT_EQ(scene.disk->traffic().size(), before);
    EXPECT_EQ(scene.panel->asked.size(), 1U);
}

TEST_F(WindowBridgeTest, IgnoresPressesBehindTheFolderPanel) {
    choose();
    const auto before = scene.disk->traffic().size();
    scene.panel->answer = std::nullopt;
    scene.panel->whileOpen = [&] {
        bridge.projects()->beginRename(0);
        bridge.rescan();
        selectFolder();
    };
    selectFolder();
    settle();
    EXPECT_FALSE(bridge.sheet()->open());
    EXPECT_EQ(scene.disk->traffic().size(), before);
    EXPECT_EQ(scene.panel->asked.size(), 2U);
    bridge.projects()->beginRename(0);
    EXPECT_TRUE(bridge.sheet()->open()) << "once the panel is closed";
}

TEST_F(WindowBridgeTest, WithdrawsTheFolderPanel) {
    scene.panel->answer = std::nullopt;
    scene.panel->whileOpen = [&] {
        EXPECT_TRUE(bridge.panelOpen());
        bridge.withdrawPanel();
    };
    std::vector<bool> open;
    QObject::connect(&bridge, &WindowBridge::changed, &bridge, [&] { open.push_back(bridge.panelOpen()); });
    selectFolder();
    EXPECT_EQ(scene.panel->withdrawn, 1);
    EXPECT_EQ(std::vector(open.begin(), open.begin() + 2), (std::vector{true, false})) << "at once";
}

TEST_F(WindowBridgeTest, IsNotCoveredAfterThePanelThrows) {
    scene.panel->whileOpen = [] { throw std::bad_alloc(); };
    bridge.selectFolder();
    EXPECT_THROW(QCoreApplication::sendPostedEvents(&bridge), std::bad_alloc);
    EXPECT_FALSE(bridge.panelOpen());
    EXPECT_FALSE(view->isCovered());
}

TEST_F(WindowBridgeTest, DoesNotStartASecondScanByTheButton) {
    selectFolder();
    bridge.rescan();
    settle();
    EXPECT_EQ(bridge.log()->rowCount(), 2);
}

TEST_F(WindowBridgeTest, IgnoresTypingOnceTheSheetIsClosed) {
    choose();
    bridge.projects()->beginRename(0);
    bridge.sheet()->cancelRename();
    bridge.sheet()->setNewName("late");
    EXPECT_EQ(view->newName.get(), "Blue Hour");
}

TEST_F(WindowBridgeTest, RejectsALoneSurrogateAsANameThatCannotBeEncoded) {
    choose();
    bridge.projects()->beginRename(0);
    bridge.sheet()->setNewName(QStringLiteral("a") + QChar(u'\xD800'));
    EXPECT_EQ(bridge.sheet()->newName(), QStringLiteral("a") + QChar(u'\xD800'));
    bridge.sheet()->pressRename();
    EXPECT_EQ(bridge.sheet()->alertMessage(), "Failed to write file: Could not encode updated XML");
}

TEST_F(WindowBridgeTest, GivesTheRowOfTheNewNameAfterTheRescan) {
    choose();
    QSignalSpy listed(bridge.projects(), &ProjectListModel::renamedProjectListed);
    bridge.projects()->beginRename(0);
    bridge.sheet()->setNewName("  Zebra ");
    bridge.sheet()->pressRename();
    pass(499ms);
    EXPECT_EQ(listed.size(), 0);
    pass(1ms);
    ASSERT_EQ(listed.size(), 1);
    EXPECT_EQ(listed.at(0).at(0).toInt(), 1);
    bridge.rescan();
    pass(5s);
    EXPECT_EQ(listed.size(), 1) << "only the rename's own rescan moves the focus";
}

TEST_F(WindowBridgeTest, IgnoresAScanBeforeTheRescan) {
    choose();
    QSignalSpy listed(bridge.projects(), &ProjectListModel::renamedProjectListed);
    bridge.projects()->beginRename(0);
    bridge.sheet()->setNewName("Zebra");
    bridge.sheet()->pressRename();
    bridge.rescan();
    settle();
    EXPECT_EQ(listed.size(), 0);
    pass(500ms);
    EXPECT_EQ(listed.size(), 1);
}

TEST_F(WindowBridgeTest, SaysWhenTheNewNameIsNotListed) {
    choose();
    QSignalSpy listed(bridge.projects(), &ProjectListModel::renamedProjectListed);
    bridge.projects()->setSearchText("Blue");
    settle();
    bridge.projects()->beginRename(0);
    bridge.sheet()->setNewName("Zebra");
    bridge.sheet()->pressRename();
    pass(500ms);
    ASSERT_EQ(listed.size(), 1);
    EXPECT_EQ(listed.at(0).at(0).toInt(), -1);
}

TEST_F(WindowBridgeTest, HighlightsUntilTheRescanBringsNewRecords) {
    choose();
    bridge.projects()->beginRename(0);
    bridge.sheet()->setNewName("Red Hour");
    bridge.sheet()->pressRename();
    settle();
    const auto renamed = [&](int row) {
        const ProjectListModel& rows = *bridge.projects();
        return rows.data(rows.index(row), rows.roleNames().key("renamed")).toBool();
    };
    EXPECT_TRUE(renamed(0));
    pass(500ms);
    EXPECT_FALSE(renamed(0));
    EXPECT_FALSE(renamed(1));
}

TEST_F(WindowBridgeTest, OutlivesItsQueueAndIsOutlivedByIt) {
    auto other = ContentView::create(scene.services());
    {
        WindowBridge shortLived(other);
        shortLived.selectFolder();
        settle();
        settle();
        shortLived.projects()->beginRename(0);
        shortLived.sheet()->setNewName("Red Hour");
        shortLived.sheet()->pressRename();
    }
    pass(5s);
    EXPECT_EQ(other->scanner->projects.get().size(), 2U);
}

} // namespace
} // namespace tarvolt
