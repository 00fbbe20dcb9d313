#include "tests/app/bridge/scene_window.h"

#include <QAccessible>
#include <QMetaEnum>
#include <QRegularExpression>

namespace tarvolt {
namespace {

using testing::SceneWindow;

/// One line for each element that assistive technology finds: "Role: name".
void describe(QAccessibleInterface* thing, QStringList& lines) {
    if (thing == nullptr || !thing->isValid() || thing->state().invisible) {
        return;
    }
    const QString role = QMetaEnum::fromType<QAccessible::Role>().valueToKey(thing->role());
    lines << role + ": " + thing->text(QAccessible::Name);
    for (int i = 0; i < thing->childCount(); ++i) {
        describe(thing->child(i), lines);
    }
}

/// The elements that assistive technology is told to be wider or higher than they are, by a unit or more.
void measure(QAccessibleInterface* thing, QStringList& tooLarge) {
    if (thing == nullptr || !thing->isValid() || thing->state().invisible) {
        return;
    }
    const auto* item = qobject_cast<QQuickItem*>(thing->object());
    const QSize told = thing->rect().size();
    if (item != nullptr && (told.width() >= item->width() + 1 || told.height() >= item->height() + 1)) {
        tooLarge << QString("%1: %2 x %3").arg(item->objectName()).arg(told.width()).arg(told.height());
    }
    for (int i = 0; i < thing->childCount(); ++i) {
        measure(thing->child(i), tooLarge);
    }
}

class AccessibilityTest : public ::testing::Test {
protected:
    AccessibilityTest() {
        QAccessible::setActive(true);
        w = std::make_unique<SceneWindow>();
    }

    void choose() {
        w->addProject("Blue Hour");
        w->addProject("Sketch", false);
        w->choose();
    }

    QStringList heard() const {
        QStringList lines;
        describe(QAccessible::queryAccessibleInterface(w->window), lines);
        return lines;
    }

    QAccessibleInterface* thing(const QString& name) const {
        return QAccessible::queryAccessibleInterface(w->find(name));
    }

    QString description(const QString& name) const { return thing(name)->text(QAccessible::Description); }

    void pressByAction(const QString& name) const {
        thing(name)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        w->settle();
    }

    std::unique_ptr<SceneWindow> w;
};

TEST_F(AccessibilityTest, TheFolderPickerIsReadWithoutItsDecoration) {
    const char* const explanation =
        "StaticText: Choose the folder that contains your .xpj files\nand their _[ProjectData] folders";
    EXPECT_EQ(heard(), (QStringList{"Window: Tarvolt", "StaticText: Tarvolt",
                                    "StaticText: Select Your MPC Projects Folder", explanation, "Button: Select Folder",
                                    "StaticText: Everything runs locally. No files are uploaded anywhere."}));
}

TEST_F(AccessibilityTest, EachRowIsOneSentenceWithAButtonNamedAfterItsProject) {
    choose();
    const QStringList lines = heard();
    for (const char* line : {"StaticText: /p", "StaticText: 2 projects", "Button: Rescan", "Button: Change Folder",
                             "List: Projects", "ListItem: Blue Hour, 0 files, 1 byte", "Button: Rename Blue Hour",
                             "ListItem: Sketch, 0 files, 1 byte, No data folder", "Button: Rename Sketch",
                             "StaticText: ACTIVITY LOG", "List: ACTIVITY LOG"}) {
        EXPECT_TRUE(lines.contains(line)) << line << " not in\n" << lines.join('\n').toStdString();
    }
    EXPECT_EQ(lines.filter("ListItem: Scan complete: 2 project(s), 12:00:00").size(), 1);
    EXPECT_EQ(lines.filter("Blue Hour").size(), 2) << "what the sentence says is not said again";
}

TEST_F(AccessibilityTest, NothingIsSaidToBeLargerThanItIs) {
    choose();
    QStringList tooLarge;
    measure(QAccessible::queryAccessibleInterface(w->window), tooLarge);
    EXPECT_EQ(tooLarge, QStringList());
}

TEST_F(AccessibilityTest, ARowsButtonSaysWhatTheRowShows) {
    choose();
    const auto buttons = w->findAll("rowButton");
    ASSERT_EQ(buttons.size(), 2U);
    const auto said = [](QQuickItem* button) {
        return QAccessible::queryAccessibleInterface(button)->text(QAccessible::Description);
    };
    EXPECT_EQ(said(buttons[0]), "0 files, 1 byte");
    EXPECT_EQ(said(buttons[1]), "0 files, 1 byte, No data folder");
}

TEST_F(AccessibilityTest, TheHighlightIsAnnouncedInWords) {
    choose();
    w->view->successProject.set(w->view->scanner->projects.get()[0].id());
    w->settle();
    EXPECT_TRUE(heard().contains("ListItem: Blue Hour, 0 files, 1 byte, Renamed"));
    EXPECT_EQ(description("rowButton"), "0 files, 1 byte, Renamed");
}

TEST_F(AccessibilityTest, TheSelectFolderButtonSaysWhichFolder) {
    EXPECT_EQ(description("selectFolderButton"),
              "Choose the folder that contains your .xpj files\nand their _[ProjectData] folders");
}

TEST_F(AccessibilityTest, AFieldSaysItsTextWhenItGetsTheFocus) {
    w->addProjects(6);
    w->choose();
    w->find("searchField")->forceActiveFocus();
    EXPECT_EQ(description("searchField"), "");
    w->type("song");
    EXPECT_EQ(description("searchField"), "") << "who types hears the keys";
    w->bridge->projects()->beginRename(0);
    w->settle();
    EXPECT_EQ(description("newNameField"), "Song 0");
    EXPECT_EQ(description("searchField"), "");
    w->press(Qt::Key_Escape);
    w->settle();
    w->find("searchField")->forceActiveFocus();
    EXPECT_EQ(description("searchField"), "song");
}

TEST_F(AccessibilityTest, NotificationsTellWhatASearchFindsAndHowAScanOrARenameEnds) {
    w->addProjects(6);
    w->choose();
    const auto notifications = [&] { return heard().filter(QRegularExpression("^Notification: ")); };
    EXPECT_EQ(notifications(), (QStringList{"Notification: Scan complete: 6 project(s)"}));
    w->bridge->projects()->setSearchText("5");
    w->settle();
    EXPECT_EQ(notifications(), (QStringList{"Notification: 1 project"}));
    const QQuickItem* first = w->find("news");
    w->bridge->projects()->setSearchText("g 5");
    w->settle();
    EXPECT_EQ(notifications(), (QStringList{"Notification: 1 project"}));
    EXPECT_NE(w->find("news"), first) << "another one, which is read out again";
    w->bridge->projects()->beginRename(0);
    w->bridge->sheet()->setNewName("Song 8");
    w->bridge->sheet()->submitNewName();
    w->settle();
    EXPECT_EQ(notifications(), (QStringList{"Notification: Renamed \"Song 5\" → \"Song 8\""}));
}

TEST_F(AccessibilityTest, TheScanIsReadable) {
    choose();
    w->bridge->rescan();
    QCoreApplication::processEvents();
    EXPECT_TRUE(heard().contains("Notification: Scanning..."));
    EXPECT_EQ(thing("rescanButton")->text(QAccessible::Description), "Not available now");
}

TEST_F(AccessibilityTest, TheEmptyStateIsReadOut) {
    w->choose();
    EXPECT_TRUE(
        heard().contains("Notification: Make sure you selected the folder that\ndirectly contains your .xpj files."));
}

TEST_F(AccessibilityTest, EveryPressActionWorksAndADisabledOneDoesNothing) {
    w->addProjects(2);
    w->scene.panel->answer = "/p";
    pressByAction("selectFolderButton");
    EXPECT_EQ(w->findAll("projectRow").size(), 2U);
    const auto scans = [&] { return w->bridge->log()->rowCount() / 2; };
    pressByAction("rescanButton");
    EXPECT_EQ(scans(), 2);
    pressByAction("changeFolderButton");
    EXPECT_EQ(scans(), 3);
    pressByAction("rowButton");
    EXPECT_TRUE(w->bridge->sheet()->open());
    pressByAction("renameButton");
    EXPECT_TRUE(w->bridge->sheet()->open());
    EXPECT_FALSE(w->bridge->sheet()->alertOpen());
    pressByAction("cancelButton");
    EXPECT_FALSE(w->bridge->sheet()->open());
    pressByAction("rowButton");
    w->bridge->sheet()->setNewName("Song 1");
    pressByAction("renameButton");
    EXPECT_TRUE(w->bridge->sheet()->alertOpen());
    pressByAction("alertButton");
    EXPECT_FALSE(w->bridge->sheet()->alertOpen());
}

TEST_F(AccessibilityTest, NothingBehindTheSheetCanBePressed) {
    choose();
    w->bridge->projects()->beginRename(0);
    w->settle();
    pressByAction("changeFolderButton");
    pressByAction("rescanButton");
    pressByAction("rowButton");
    EXPECT_EQ(w->scene.panel->asked.size(), 1U);
    EXPECT_EQ(w->bridge->log()->rowCount(), 2);
    EXPECT_EQ(w->bridge->sheet()->currentName(), "Blue Hour");
}

TEST_F(AccessibilityTest, TheSheetAndItsFieldHaveNames) {
    choose();
    w->bridge->projects()->beginRename(0);
    w->settle();
    EXPECT_EQ(thing("newNameField")->text(QAccessible::Name), "New name");
    EXPECT_EQ(thing("newNameField")->role(), QAccessible::EditableText);
    EXPECT_TRUE(thing("newNameField")->state().focused);
    EXPECT_TRUE(thing("newNameField")->state().editable);
    EXPECT_EQ(thing("renameButton")->text(QAccessible::Description), "Not available now");
    EXPECT_EQ(thing("cancelButton")->text(QAccessible::Description), "");
}

TEST_F(AccessibilityTest, AFocusablePreviewHasAName) {
    choose();
    w->bridge->projects()->beginRename(0);
    w->bridge->sheet()->setNewName("Red Hour");
    w->settle();
    EXPECT_FALSE(heard().contains("Grouping: PREVIEW")) << "one that does not scroll";
    w->bridge->sheet()->setNewName(QString(240, u'x'));
    w->settle();
    EXPECT_TRUE(heard().contains("Grouping: PREVIEW"));
    w->press(Qt::Key_Tab);
    EXPECT_EQ(w->focused(), "previewArea");
    EXPECT_TRUE(thing("previewArea")->state().focused);
    EXPECT_TRUE(heard().contains("StaticText: " + QString(240, u'x') + ".xpj"));
}

TEST_F(AccessibilityTest, TheAlertIsADialogThatSaysItsTextOnce) {
    choose();
    w->bridge->projects()->beginRename(0);
    w->bridge->sheet()->setNewName("Sketch");
    w->bridge->sheet()->pressRename();
    w->settle();
    EXPECT_EQ(heard().mid(heard().size() - 3),
              (QStringList{"StaticText: Rename Failed", "StaticText: A project named \"Sketch\" already exists.",
                           "Button: OK"}));
    EXPECT_FALSE(heard().contains("AlertMessage: Rename Failed")) << "in the dialog of this name";
    EXPECT_TRUE(thing("alertButton")->state().focused);
}

} // namespace
} // namespace tarvolt
