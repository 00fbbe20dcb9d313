#include "tests/app/bridge/scene_window.h"

#include <algorithm>
#include <string>

namespace tarvolt {
namespace {

using testing::SceneWindow;

class KeyboardTest : public ::testing::Test {
protected:
    void choose(int projects) {
        w.addProjects(projects);
        w.choose();
    }

    void openSheet(int row) {
        w.bridge->projects()->beginRename(row);
        w.settle();
    }

    /// Sends a key as a held one repeats it.
    void repeat(Qt::Key key, const QString& text = {}) const {
        QKeyEvent released(QEvent::KeyRelease, key, Qt::NoModifier, text, true);
        QCoreApplication::sendEvent(w.window, &released);
        QKeyEvent pressed(QEvent::KeyPress, key, Qt::NoModifier, text, true);
        QCoreApplication::sendEvent(w.window, &pressed);
    }

    /// Types the other project's name into the open sheet and submits it.
    void failToRename() {
        w.type("Song 1");
        w.press(Qt::Key_Return);
        w.settle();
    }

    /// The log, long enough to scroll and with the focus.
    QQuickItem* focusLogOfSixtyLines() {
        choose(1);
        for (int i = 0; i < 60; ++i) {
            w.view->scanner->log("line", false);
        }
        w.settle();
        QQuickItem* log = w.find("logList");
        log->forceActiveFocus(Qt::TabFocusReason);
        return log;
    }

    /// Renames the project of this row by keys alone.
    void renameRow(int row, const QString& name) {
        w.find("projectList")->forceActiveFocus(Qt::TabFocusReason);
        w.press(Qt::Key_Home);
        for (int i = 0; i < row; ++i) {
            w.press(Qt::Key_Down);
        }
        w.press(Qt::Key_Return);
        w.settle();
        w.type(name);
        w.press(Qt::Key_Return);
        w.settle();
    }

    /// Passes the time until the scan after a rename and ends that scan.
    void passRescan() {
        w.scene.mainQueue->advance(std::chrono::milliseconds(500));
        w.settle();
    }

    /// Holds Space on the focused item while it repeats five times, and releases it. Before the press it waits as long
    /// as a finger would, because a press right after a release would count as a repeat.
    void holdSpace() {
        QTest::qWait(100);
        QTest::keyPress(w.window, Qt::Key_Space);
        for (int i = 0; i < 5; ++i) {
            repeat(Qt::Key_Space, " ");
            w.settle();
        }
        QTest::keyRelease(w.window, Qt::Key_Space);
        w.settle();
    }

    int renames() const {
        const auto traffic = w.scene.disk->traffic();
        return static_cast<int>(
            std::ranges::count_if(traffic, [](const std::string& line) { return line.starts_with("create "); }));
    }

    /// The name of the focused item for assistive technology.
    QString focusedName() const {
        const QQuickItem* item = w.window->activeFocusItem();
        const QString spoken = item->property("spokenName").toString();
        return spoken.isEmpty() ? item->objectName() : spoken;
    }

    SceneWindow w;
};

TEST_F(KeyboardTest, TabGoesThroughHeaderSearchRowsDividerAndLogAndBack) {
    choose(6);
    const QStringList order = {"Rescan",        "Change Folder", "searchField",   "Rename Song 0",
                               "Rename Song 1", "Rename Song 2", "Rename Song 3", "Rename Song 4",
                               "Rename Song 5", "splitHandle",   "logRow"};
    for (const QString& name : order) {
        w.press(Qt::Key_Tab);
        EXPECT_EQ(focusedName(), name);
    }
    for (auto name = order.crbegin() + 1; name != order.crend(); ++name) {
        w.press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(focusedName(), *name);
    }
}

TEST_F(KeyboardTest, FocusIsAlwaysVisible) {
    choose(6);
    for (int stop = 0; stop < 11; ++stop) {
        w.press(Qt::Key_Tab);
        const QQuickItem* item = w.window->activeFocusItem();
        const bool ring = item->property("visualFocus").toBool() || !w.findAll("searchFocus").empty() ||
                          item->property("strong").toBool() || !w.findAll("logFocus").empty();
        EXPECT_TRUE(ring) << focusedName().toStdString();
    }
}

TEST_F(KeyboardTest, TheListScrollsByKeysAndKeepsTheFocusedRowInSight) {
    choose(60);
    const auto inSight = [&] {
        const QRectF button = SceneWindow::boxOf(w.window->activeFocusItem());
        return w.box("projectList").contains(button);
    };
    w.find("projectList")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_EQ(focusedName(), "Rename Song 0");
    w.press(Qt::Key_Down);
    EXPECT_EQ(focusedName(), "Rename Song 1");
    w.press(Qt::Key_End);
    EXPECT_EQ(focusedName(), "Rename Song 9") << "the last by name";
    EXPECT_TRUE(inSight());
    w.press(Qt::Key_PageUp);
    EXPECT_TRUE(inSight());
    EXPECT_NE(focusedName(), "Rename Song 8");
    w.press(Qt::Key_Up);
    EXPECT_TRUE(inSight());
    w.press(Qt::Key_Home);
    EXPECT_EQ(focusedName(), "Rename Song 0");
    EXPECT_TRUE(inSight());
    w.press(Qt::Key_PageDown);
    EXPECT_TRUE(inSight());
}

TEST_F(KeyboardTest, TheLogScrollsByKeys) {
    QQuickItem* log = focusLogOfSixtyLines();
    const auto top = [&] { return log->property("contentY").toDouble() - log->property("originY").toDouble(); };
    EXPECT_EQ(top(), 0);
    w.press(Qt::Key_PageDown);
    EXPECT_GT(top(), 100);
    w.press(Qt::Key_End);
    w.settle();
    const double end = top();
    EXPECT_GT(end, 1000);
    w.press(Qt::Key_PageUp);
    w.settle();
    EXPECT_LT(top(), end);
    w.press(Qt::Key_Home);
    w.settle();
    EXPECT_EQ(top(), 0);
}

TEST_F(KeyboardTest, PageDownLeavesTheFocusedLineOfTheLogInSightAtItsEndToo) {
    QQuickItem* log = focusLogOfSixtyLines();
    const auto toTheEnd = [&] {
        const double end = log->property("originY").toDouble() + log->property("contentHeight").toDouble();
        return end - log->property("contentY").toDouble() - log->height();
    };
    for (int i = 0; i < 12; ++i) {
        w.press(Qt::Key_PageDown);
        w.rest();
        EXPECT_TRUE(w.box("logList").contains(SceneWindow::boxOf(w.window->activeFocusItem()))) << i;
    }
    EXPECT_NEAR(toTheEnd(), 0, 1);
}

TEST_F(KeyboardTest, TheArrowKeysMoveFromLineToLineOfTheLog) {
    choose(1);
    const auto line = [&] { return w.window->activeFocusItem()->property("message").toString(); };
    const auto inSight = [&] { return w.box("logList").contains(SceneWindow::boxOf(w.window->activeFocusItem())); };
    w.find("logList")->forceActiveFocus(Qt::TabFocusReason);
    w.press(Qt::Key_Down);
    EXPECT_EQ(line(), "Found 1 .xpj file(s) and 1 data folder(s)") << "where nothing has to scroll";
    for (int i = 0; i < 60; ++i) {
        w.view->scanner->log("line " + std::to_string(i), false);
    }
    w.settle();
    w.press(Qt::Key_Home);
    EXPECT_EQ(line(), "line 59");
    w.press(Qt::Key_Up);
    EXPECT_EQ(line(), "line 59");
    for (int i = 58; i >= 30; --i) {
        w.press(Qt::Key_Down);
        w.rest();
        EXPECT_EQ(line(), QStringLiteral("line %1").arg(i));
        EXPECT_TRUE(inSight()) << i;
    }
    w.press(Qt::Key_End);
    w.rest();
    EXPECT_EQ(line(), "Found 1 .xpj file(s) and 1 data folder(s)");
    EXPECT_TRUE(inSight());
    w.press(Qt::Key_Home);
    w.rest();
    EXPECT_EQ(line(), "line 59");
    w.view->scanner->log("newest", false);
    w.settle();
    EXPECT_EQ(line(), "line 59") << "the reader's line";
    w.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focusedName(), "splitHandle");
    w.press(Qt::Key_Tab);
    EXPECT_EQ(line(), "newest");
}

TEST_F(KeyboardTest, TheDividerMovesByKeys) {
    choose(1);
    w.find("splitHandle")->forceActiveFocus(Qt::TabFocusReason);
    w.press(Qt::Key_Left);
    EXPECT_EQ(w.box("logView").width(), 250);
    w.press(Qt::Key_Right);
    w.press(Qt::Key_Right);
    EXPECT_EQ(w.box("logView").width(), 230);
}

TEST_F(KeyboardTest, OpensTheSheetWithTheFieldFocusedAndTheNameSelected) {
    choose(2);
    w.find("projectList")->forceActiveFocus(Qt::TabFocusReason);
    w.press(Qt::Key_Down);
    w.press(Qt::Key_Return);
    w.settle();
    EXPECT_EQ(w.focused(), "newNameField");
    EXPECT_EQ(w.find("newNameField")->property("selectedText").toString(), "Song 1");
    w.press(Qt::Key_Escape);
    w.settle();
    EXPECT_EQ(focusedName(), "Rename Song 1");
    w.press(Qt::Key_Up);
    w.press(Qt::Key_Space);
    w.settle();
    EXPECT_EQ(w.find("newNameField")->property("selectedText").toString(), "Song 0");
}

TEST_F(KeyboardTest, TabStaysInTheSheet) {
    choose(2);
    openSheet(0);
    w.type("New");
    w.settle();
    const QStringList order = {"Cancel", "Rename", "newNameField", "Cancel"};
    for (const QString& name : order) {
        w.press(Qt::Key_Tab);
        EXPECT_EQ(focusedName(), name);
    }
}

TEST_F(KeyboardTest, ALongPreviewScrollsByKeysAndMayShrinkOrVanishWhileFocused) {
    choose(2);
    openSheet(0);
    for (const QString& name : {QStringLiteral("short"), QStringLiteral("Song 0"), QString()}) {
        w.bridge->sheet()->setNewName(QString(240, u'x'));
        w.settle();
        w.find("newNameField")->forceActiveFocus();
        w.press(Qt::Key_Tab);
        EXPECT_EQ(w.focused(), "previewArea");
        w.press(Qt::Key_End);
        EXPECT_GT(w.find("previewArea")->property("contentY").toDouble(), 0);
        w.bridge->sheet()->setNewName(name);
        w.settle();
        w.press(Qt::Key_Tab);
        EXPECT_EQ(focusedName(), "Cancel") << name.toStdString();
    }
    w.press(Qt::Key_Escape);
    w.settle();
    EXPECT_FALSE(w.bridge->sheet()->open());
}

TEST_F(KeyboardTest, EachPreviewStartsAtItsTop) {
    w.addProject(std::string(200, 'x'));
    w.addProject(std::string(200, 'y'));
    w.choose();
    openSheet(0);
    w.bridge->sheet()->setNewName(QString(201, u'x'));
    w.settle();
    w.press(Qt::Key_Tab);
    w.press(Qt::Key_End);
    ASSERT_GT(w.find("previewArea")->property("contentY").toDouble(), 0);
    w.press(Qt::Key_Escape);
    w.settle();
    openSheet(1);
    w.bridge->sheet()->setNewName(QString(201, u'y'));
    w.settle();
    EXPECT_EQ(w.find("previewArea")->property("contentY").toDouble(), 0);
}

TEST_F(KeyboardTest, ReturnAndKeypadEnterInTheFieldRenameOnce) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        SceneWindow window;
        window.addProjects(2);
        window.choose();
        window.bridge->projects()->beginRename(0);
        window.settle();
        window.type("New");
        window.press(key);
        window.press(key);
        window.settle();
        EXPECT_FALSE(window.bridge->sheet()->open());
        EXPECT_FALSE(window.bridge->sheet()->alertOpen());
        EXPECT_EQ(window.scene.disk->disk(), (std::vector<std::string>{"/p/", "/p/New.xpj=x", "/p/New_[ProjectData]/",
                                                                       "/p/Song 1.xpj=x", "/p/Song 1_[ProjectData]/"}));
    }
}

TEST_F(KeyboardTest, ReturnAndKeypadEnterInTheFieldAskForTheRenameWhileItsButtonIsDisabled) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        SceneWindow window;
        window.addProjects(2);
        window.choose();
        window.bridge->projects()->beginRename(0);
        window.settle();
        ASSERT_FALSE(window.find("renameButton")->isEnabled());
        window.press(key);
        EXPECT_TRUE(window.bridge->sheet()->alertOpen());
    }
}

TEST_F(KeyboardTest, AHeldReturnNeitherRenamesNorClosesTheAlert) {
    choose(2);
    openSheet(0);
    w.type("New");
    repeat(Qt::Key_Return);
    repeat(Qt::Key_Enter);
    EXPECT_EQ(renames(), 0);
    w.find("newNameField")->setProperty("text", "Song 1");
    w.bridge->sheet()->setNewName("Song 1");
    w.press(Qt::Key_Return);
    ASSERT_TRUE(w.bridge->sheet()->alertOpen());
    repeat(Qt::Key_Return);
    w.settle();
    repeat(Qt::Key_Return);
    EXPECT_TRUE(w.bridge->sheet()->alertOpen());
}

TEST_F(KeyboardTest, AHeldSpaceIsOnePress) {
    choose(2);
    const std::size_t scans = w.view->scanner->logEntries.get().size();
    w.find("rescanButton")->forceActiveFocus(Qt::TabFocusReason);
    holdSpace();
    EXPECT_EQ(w.view->scanner->logEntries.get().size(), 2 * scans);
    w.find("rowButton")->forceActiveFocus(Qt::TabFocusReason);
    holdSpace();
    ASSERT_TRUE(w.bridge->sheet()->open());
    EXPECT_EQ(w.bridge->sheet()->newName(), "Song 0");
    failToRename();
    ASSERT_TRUE(w.bridge->sheet()->alertOpen());
    holdSpace();
    EXPECT_FALSE(w.bridge->sheet()->alertOpen());
    EXPECT_EQ(w.bridge->sheet()->newName(), "Song 1");
}

TEST_F(KeyboardTest, ReturnOnAFocusedButtonPressesThatButton) {
    choose(2);
    openSheet(0);
    w.type("New");
    w.find("cancelButton")->forceActiveFocus(Qt::TabFocusReason);
    w.press(Qt::Key_Return);
    w.settle();
    EXPECT_FALSE(w.bridge->sheet()->open());
    EXPECT_EQ(renames(), 0);
    openSheet(0);
    w.type("New");
    w.settle();
    w.find("renameButton")->forceActiveFocus(Qt::TabFocusReason);
    w.press(Qt::Key_Enter);
    EXPECT_EQ(renames(), 1);
}

TEST_F(KeyboardTest, EscapeClosesOnlyTheTopmostLayer) {
    choose(2);
    openSheet(0);
    failToRename();
    ASSERT_TRUE(w.bridge->sheet()->alertOpen());
    w.press(Qt::Key_Escape);
    w.settle();
    EXPECT_FALSE(w.bridge->sheet()->alertOpen());
    EXPECT_TRUE(w.bridge->sheet()->open());
    w.press(Qt::Key_Escape);
    w.settle();
    EXPECT_FALSE(w.bridge->sheet()->open());
}

TEST_F(KeyboardTest, AHeldEscapeClosesOnlyTheTopmostLayer) {
    choose(2);
    openSheet(0);
    failToRename();
    ASSERT_TRUE(w.bridge->sheet()->alertOpen());
    QTest::keyPress(w.window, Qt::Key_Escape);
    w.settle();
    for (int i = 0; i < 3; ++i) {
        repeat(Qt::Key_Escape);
        w.settle();
    }
    EXPECT_FALSE(w.bridge->sheet()->alertOpen());
    EXPECT_TRUE(w.bridge->sheet()->open());
}

TEST_F(KeyboardTest, AClickOutsideClosesNeither) {
    choose(2);
    openSheet(0);
    QTest::mouseClick(w.window, Qt::LeftButton, {}, QPoint(20, 560));
    w.settle();
    EXPECT_TRUE(w.bridge->sheet()->open());
    w.bridge->sheet()->submitNewName();
    w.settle();
    QTest::mouseClick(w.window, Qt::LeftButton, {}, QPoint(20, 560));
    w.settle();
    EXPECT_TRUE(w.bridge->sheet()->alertOpen());
}

TEST_F(KeyboardTest, AfterTheAlertTheFieldHasTheFocusAndTheTextAgain) {
    choose(2);
    openSheet(0);
    w.type("Song 1");
    w.click("renameButton");
    w.settle();
    ASSERT_TRUE(w.bridge->sheet()->alertOpen());
    EXPECT_EQ(w.focused(), "alertButton");
    w.press(Qt::Key_Return);
    w.settle();
    EXPECT_FALSE(w.bridge->sheet()->alertOpen());
    EXPECT_EQ(w.focused(), "newNameField");
    EXPECT_EQ(w.find("newNameField")->property("text").toString(), "Song 1");
    w.type("9");
    EXPECT_EQ(w.bridge->sheet()->newName(), "Song 19");
}

TEST_F(KeyboardTest, AfterTheRescanTheFocusIsOnTheRenamedRowJustInSight) {
    choose(60);
    openSheet(0);
    w.type("Zebra");
    w.press(Qt::Key_Return);
    w.settle();
    w.scene.mainQueue->advance(std::chrono::milliseconds(500));
    w.settle();
    EXPECT_EQ(focusedName(), "Rename Zebra");
    EXPECT_TRUE(w.window->activeFocusItem()->property("visualFocus").toBool());
    EXPECT_TRUE(w.box("projectList").contains(SceneWindow::boxOf(w.window->activeFocusItem())));
}

TEST_F(KeyboardTest, NoRingSurroundsTheListWhileAScanEmptiesIt) {
    choose(3);
    w.click("rowButton");
    w.settle();
    w.type("Zebra");
    w.press(Qt::Key_Return);
    w.settle();
    w.scene.mainQueue->advance(std::chrono::milliseconds(500));
    w.rest();
    ASSERT_TRUE(w.bridge->scanning());
    EXPECT_TRUE(w.findAll("listFocus").empty());
    w.settle();
    EXPECT_EQ(focusedName(), "Rename Zebra");
}

TEST_F(KeyboardTest, TheRescanMayComeWhileTheSheetStillFades) {
    choose(8);
    w.bridge->projects()->setSearchText("Song 3");
    w.settle();
    QString name = "Song 3";
    for (int left = 10; left >= 0; --left) {
        w.click("rowButton");
        w.settle();
        name += 'x';
        w.find("newNameField")->setProperty("text", name);
        w.press(Qt::Key_Return);
        const auto sheet = w.findAll("renameForm");
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return w.findAll("renameForm").empty() || sheet.front()->parentItem()->opacity() * 10 <= left; }));
        w.scene.mainQueue->advance(std::chrono::milliseconds(500));
        QCoreApplication::processEvents(); // the list is empty
        w.settle();
        EXPECT_EQ(focusedName(), "Rename " + name) << left << " tenths of the sheet left";
    }
}

TEST_F(KeyboardTest, AfterTheRescanTheFocusIsInTheSearchFieldThatHidesTheNewName) {
    choose(8);
    w.bridge->projects()->setSearchText("Song");
    w.settle();
    renameRow(0, "Zebra");
    passRescan();
    EXPECT_EQ(w.focused(), "searchField");
    w.press(Qt::Key_Return);
    w.settle();
    EXPECT_FALSE(w.bridge->sheet()->open());
}

TEST_F(KeyboardTest, AfterTheRescanTheFocusIsOnNoRowWhereAHiddenSearchHidesTheNewName) {
    choose(3);
    w.bridge->projects()->setSearchText("Song");
    w.settle();
    renameRow(0, "Zebra");
    passRescan();
    EXPECT_EQ(w.focused(), "projectList");
    EXPECT_FALSE(w.findAll("listFocus").empty());
    w.press(Qt::Key_Return);
    w.press(Qt::Key_Space);
    w.settle();
    EXPECT_FALSE(w.bridge->sheet()->open());
    w.press(Qt::Key_Down);
    EXPECT_EQ(focusedName(), "Rename Song 1");
    EXPECT_TRUE(w.findAll("listFocus").empty());
}

TEST_F(KeyboardTest, AfterTheRescanTheFocusIsOnNoRowWhereTheProjectHasGone) {
    choose(3);
    renameRow(0, "Zebra");
    w.scene.disk->lose("/p/Zebra.xpj");
    passRescan();
    EXPECT_EQ(w.focused(), "projectList");
    EXPECT_FALSE(w.findAll("listFocus").empty());
}

TEST_F(KeyboardTest, ReturnAfterARenameDoesNothingUntilTheListIsUpdated) {
    choose(3);
    renameRow(0, "Zebra");
    for (const auto wait : {0, 160, 300}) {
        w.scene.mainQueue->advance(std::chrono::milliseconds(wait));
        w.settle();
        w.press(Qt::Key_Return);
        w.press(Qt::Key_Space);
        w.settle();
        EXPECT_FALSE(w.bridge->sheet()->open()) << wait;
    }
    passRescan();
    EXPECT_EQ(focusedName(), "Rename Zebra");
    w.press(Qt::Key_Return);
    EXPECT_TRUE(w.bridge->sheet()->open());
}

TEST_F(KeyboardTest, ReturnAfterARenameOpensTheSheetOfARowTheUserHasMovedTo) {
    choose(3);
    renameRow(0, "Zebra");
    w.press(Qt::Key_End);
    w.press(Qt::Key_Return);
    w.settle();
    EXPECT_EQ(w.bridge->sheet()->newName(), "Song 2");
}

TEST_F(KeyboardTest, AfterARenameTheKeysContinueFromTheRenamedRow) {
    choose(4);
    renameRow(1, "Zebra");
    w.press(Qt::Key_Down);
    EXPECT_EQ(focusedName(), "Rename Song 2");
    passRescan();
    EXPECT_EQ(focusedName(), "Rename Song 2") << "where the person has gone to";
    renameRow(0, "Yak");
    w.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focusedName(), "Change Folder");
}

TEST_F(KeyboardTest, KeyboardUsersSeeTheRestoredFocus) {
    choose(2);
    const auto rings = [&] { return w.window->activeFocusItem()->property("visualFocus").toBool(); };
    w.press(Qt::Key_Tab);
    ASSERT_EQ(focusedName(), "Rescan");
    w.press(Qt::Key_Return);
    w.settle();
    EXPECT_EQ(focusedName(), "Rescan");
    EXPECT_TRUE(rings()) << "after the scan";
    w.press(Qt::Key_Tab);
    w.press(Qt::Key_Tab);
    w.press(Qt::Key_Return);
    w.settle();
    failToRename();
    EXPECT_EQ(w.focused(), "alertButton");
    EXPECT_TRUE(rings()) << "in the alert";
    w.press(Qt::Key_Escape);
    w.settle();
    w.press(Qt::Key_Escape);
    w.settle();
    EXPECT_EQ(focusedName(), "Rename Song 0");
    EXPECT_TRUE(rings()) << "after the sheet";
}

TEST_F(KeyboardTest, TabShowsAFocusThatItLeadsBackTo) {
    const auto rings = [&] { return w.window->activeFocusItem()->property("visualFocus").toBool(); };
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        QTest::mousePress(w.window, Qt::LeftButton, {}, w.box("selectFolderButton").center().toPoint());
        QTest::mouseRelease(w.window, Qt::LeftButton, {}, QPoint(1, 1));
        ASSERT_EQ(w.focused(), "selectFolderButton");
        ASSERT_FALSE(rings());
        w.press(key);
        EXPECT_EQ(w.focused(), "selectFolderButton") << "the only control";
        EXPECT_TRUE(rings());
        w.window->activeFocusItem()->setProperty("focusReason", Qt::MouseFocusReason);
    }
}

TEST_F(KeyboardTest, TheFocusStaysWhereTheUserMovedItAfterARename) {
    choose(3);
    renameRow(0, "Zebra");
    w.find("changeFolderButton")->forceActiveFocus(Qt::TabFocusReason);
    passRescan();
    EXPECT_EQ(focusedName(), "Change Folder");
}

TEST_F(KeyboardTest, TheFocusReturnsToASearchFieldThatAScanHid) {
    choose(8);
    renameRow(0, "Zebra");
    w.find("searchField")->forceActiveFocus();
    w.scene.mainQueue->advance(std::chrono::milliseconds(500));
    w.rest();
    ASSERT_TRUE(w.findAll("searchField").empty());
    w.settle();
    EXPECT_EQ(w.focused(), "searchField");
    EXPECT_FALSE(w.findAll("searchField").empty());
}

TEST_F(KeyboardTest, TheFocusLeavesASearchFieldThatDoesNotComeBack) {
    choose(6);
    w.find("searchField")->forceActiveFocus();
    w.scene.disk->lose("/p/Song 0.xpj");
    w.bridge->rescan();
    w.settle();
    ASSERT_TRUE(w.findAll("searchField").empty());
    EXPECT_EQ(focusedName(), "Rename Song 1");
}

TEST_F(KeyboardTest, ARenameByMouseEndsWithoutARing) {
    choose(3);
    w.click("rowButton");
    w.settle();
    w.find("newNameField")->setProperty("text", "Zebra");
    w.settle();
    w.click("renameButton");
    w.settle();
    passRescan();
    EXPECT_EQ(focusedName(), "Rename Zebra");
    EXPECT_FALSE(w.window->activeFocusItem()->property("visualFocus").toBool());
    EXPECT_TRUE(w.findAll("listFocus").empty());
}

TEST_F(KeyboardTest, AfterTwoRenamesAroundASlowScanTheSecondNameHasTheFocus) {
    choose(3);
    renameRow(0, "Yak");
    openSheet(1);
    w.scene.mainQueue->advance(std::chrono::milliseconds(500));
    w.find("newNameField")->setProperty("text", "Zebra");
    w.press(Qt::Key_Return);
    w.rest();
    w.scene.mainQueue->advance(std::chrono::milliseconds(500));
    ASSERT_EQ(w.scene.background->pending(), 2U);
    w.scene.background->runOne();
    w.scene.mainQueue->drain();
    w.rest();
    EXPECT_EQ(w.focused(), "projectList") << "its own scan has not ended";
    w.settle();
    EXPECT_EQ(focusedName(), "Rename Zebra");
}

TEST_F(KeyboardTest, TheFirstRowHasTheFocusAfterTheFirstFolderIsChosenByKeyboard) {
    for (const bool scanEndsFirst : {true, false}) {
        SceneWindow window;
        window.addProjects(3);
        window.scene.panel->answer = "/p";
        window.find("selectFolderButton")->forceActiveFocus(Qt::TabFocusReason);
        window.press(Qt::Key_Return);
        if (scanEndsFirst) {
            window.scene.settle();
        } else {
            window.rest();
        }
        window.settle();
        const QQuickItem* item = window.window->activeFocusItem();
        EXPECT_EQ(item->property("spokenName").toString(), "Rename Song 0") << scanEndsFirst;
        EXPECT_TRUE(item->property("visualFocus").toBool());
    }
}

TEST_F(KeyboardTest, WhatIsTypedWhileTheSheetFadesIsLost) {
    choose(2);
    openSheet(0);
    w.press(Qt::Key_Escape);
    w.type("late");
    w.press(Qt::Key_Return);
    w.settle();
    EXPECT_EQ(renames(), 0);
    openSheet(0);
    EXPECT_EQ(w.find("newNameField")->property("text").toString(), "Song 0");
}

TEST_F(KeyboardTest, TheRescanLeavesAnOpenSheetAlone) {
    choose(8);
    openSheet(0);
    w.type("Zebra");
    w.press(Qt::Key_Return);
    w.settle();
    openSheet(1);
    w.type("Yak");
    w.scene.mainQueue->advance(std::chrono::milliseconds(500));
    w.settle();
    EXPECT_EQ(w.focused(), "newNameField");
    EXPECT_EQ(w.bridge->sheet()->newName(), "Yak");
    w.press(Qt::Key_Return);
    w.settle();
    w.scene.mainQueue->advance(std::chrono::milliseconds(500));
    w.settle();
    EXPECT_EQ(focusedName(), "Rename Yak");
}

TEST_F(KeyboardTest, ReturnInTheSearchDoesNothing) {
    choose(6);
    w.find("searchField")->forceActiveFocus();
    w.type("Song 3");
    w.press(Qt::Key_Return);
    w.press(Qt::Key_Escape);
    w.settle();
    EXPECT_EQ(w.focused(), "searchField");
    EXPECT_EQ(w.bridge->projects()->searchText(), "Song 3");
    EXPECT_FALSE(w.bridge->sheet()->open());
}

} // namespace
} // namespace tarvolt
