#include "tests/app/bridge/measures.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

using testing::SceneWindow;

/// The two fields and their menu.
class FieldTest : public ::testing::Test {
protected:
    FieldTest() {
        w.addProject("two\nlines");
        w.addProjects(6);
        w.choose();
        QGuiApplication::clipboard()->clear();
    }

    void openSheet() {
        w.bridge->projects()->beginRename(6);
        w.settle();
        ASSERT_EQ(w.bridge->sheet()->currentName(), "two lines");
    }

    QString shown(const QString& field = "newNameField") const { return w.find(field)->property("text").toString(); }
    std::string name() const { return w.view->newName.get(); }
    bool menuOpen() const { return !w.findAll("menuFace").empty(); }

    void showMenu() {
        w.press(Qt::Key_F10, Qt::ShiftModifier);
        w.settle();
        ASSERT_TRUE(menuOpen());
    }

    /// Goes to the entry with the arrow keys and presses Return.
    void choose(const QString& entry) {
        showMenu();
        for (int i = 0; i < 4 && w.window->activeFocusItem()->property("text") != entry; ++i) {
            w.press(Qt::Key_Down);
        }
        ASSERT_EQ(w.window->activeFocusItem()->property("text"), entry);
        w.press(Qt::Key_Return);
        w.settle();
        EXPECT_FALSE(menuOpen());
        EXPECT_TRUE(w.bridge->sheet()->open());
        EXPECT_FALSE(w.bridge->sheet()->alertOpen());
        EXPECT_EQ(w.focused(), "newNameField");
    }

    SceneWindow w;
};

TEST_F(FieldTest, ALineBreakInANameShowsAsASpaceAndIsKept) {
    openSheet();
    EXPECT_EQ(shown(), "two lines");
    EXPECT_EQ(name(), "two\nlines");
    EXPECT_FALSE(w.bridge->sheet()->offersRename());
    w.press(Qt::Key_End);
    w.type("!");
    EXPECT_EQ(shown(), "two lines!");
    EXPECT_EQ(name(), "two\nlines!");
    w.press(Qt::Key_Home);
    for (int i = 0; i < 4; ++i) {
        w.press(Qt::Key_Delete);
    }
    EXPECT_EQ(name(), "lines!");
}

TEST_F(FieldTest, APastedLineBreakShowsAsASpace) {
    QGuiApplication::clipboard()->setText("a\nb");
    openSheet();
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(shown(), "a b");
    EXPECT_EQ(name(), "a\nb");
    w.press(Qt::Key_Escape);
    w.settle();
    w.find("searchField")->forceActiveFocus();
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(shown("searchField"), "a b");
    EXPECT_EQ(w.view->searchText.get(), "a\nb");
}

TEST_F(FieldTest, ItsMenuCutsCopiesPastesAndSelectsByKeys) {
    openSheet();
    choose("Copy");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "two lines");
    choose("Cut");
    EXPECT_EQ(name(), "");
    choose("Paste");
    choose("Paste");
    EXPECT_EQ(name(), "two linestwo lines");
    choose("Select All");
    w.type("x");
    EXPECT_EQ(name(), "x");
}

TEST_F(FieldTest, ItsMenuOffersOnlyWhatCanBeDone) {
    openSheet();
    showMenu();
    const auto enabled = [this](const char* entry) {
        for (QQuickItem* item : w.findAll("fieldMenuItem")) {
            if (item->property("text") == entry) {
                return item->isEnabled();
            }
        }
        ADD_FAILURE() << "no entry " << entry;
        return false;
    };
    EXPECT_TRUE(enabled("Cut") && enabled("Copy"));
    EXPECT_FALSE(enabled("Paste") || enabled("Select All"));
    w.press(Qt::Key_Escape);
    w.settle();
    EXPECT_FALSE(menuOpen());
    EXPECT_TRUE(w.bridge->sheet()->open()) << "Escape closes the topmost layer only";
    w.press(Qt::Key_End);
    QGuiApplication::clipboard()->setText("x");
    w.press(Qt::Key_Menu);
    w.settle();
    EXPECT_FALSE(enabled("Cut") || enabled("Copy"));
    EXPECT_TRUE(enabled("Paste") && enabled("Select All"));
}

TEST_F(FieldTest, ItsMenuStartsAtTheFirstEnabledEntryWhenOpenedByAKey) {
    openSheet();
    showMenu();
    EXPECT_EQ(w.window->activeFocusItem()->property("text"), "Cut");
    EXPECT_TRUE(w.window->activeFocusItem()->property("highlighted").toBool());
    w.press(Qt::Key_Escape);
    w.settle();
    w.press(Qt::Key_End);
    showMenu();
    EXPECT_EQ(w.window->activeFocusItem()->property("text"), "Select All") << "nothing is selected or copied";
    w.press(Qt::Key_Escape);
    w.settle();
    EXPECT_EQ(w.focused(), "newNameField");
}

TEST_F(FieldTest, ItsMenuStandsClearOfTheFieldsFrame) {
    w.find("searchField")->forceActiveFocus();
    showMenu();
    EXPECT_GE(w.box("menuFace").top(), w.box("searchFill").bottom() + 2);
    w.press(Qt::Key_Escape);
    openSheet();
    showMenu();
    EXPECT_GE(w.box("menuFace").top(), w.box("newNameField").bottom() + 2);
}

TEST_F(FieldTest, ItsFrameStaysWhileItsMenuIsOpen) {
    w.addProjects(1);
    w.choose();
    w.bridge->projects()->beginRename(0);
    w.settle();
    const QQuickItem* frame = w.find("frame");
    const auto colour = frame->property("borderColor").value<QColor>();
    w.press(Qt::Key_Menu);
    w.settle();
    ASSERT_TRUE(menuOpen());
    EXPECT_EQ(frame->property("borderColor").value<QColor>(), colour);
    EXPECT_EQ(frame->property("borderWidth").toDouble(), 2);
}

TEST_F(FieldTest, ItsMenuOpensByTheRightMouseButtonAndKeepsTheSelection) {
    openSheet();
    QTest::mouseClick(w.window, Qt::RightButton, {}, w.box("newNameField").center().toPoint());
    w.settle();
    ASSERT_TRUE(menuOpen());
    EXPECT_EQ(w.find("newNameField")->property("selectedText").toString(), "two lines");
    QTest::mouseClick(w.window, Qt::LeftButton, {}, w.box("fieldMenuItem").center().toPoint());
    w.settle();
    EXPECT_FALSE(menuOpen());
    EXPECT_EQ(name(), "");
    EXPECT_EQ(w.focused(), "newNameField");
    w.press(Qt::Key_Escape);
    w.settle();
    QTest::mouseClick(w.window, Qt::RightButton, {}, w.box("searchField").center().toPoint());
    w.settle();
    EXPECT_TRUE(menuOpen());
    w.press(Qt::Key_Escape);
    w.settle();
    EXPECT_EQ(w.focused(), "searchField");
}

} // namespace
} // namespace tarvolt
