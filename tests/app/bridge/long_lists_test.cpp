#include "tests/app/bridge/scene_window.h"

namespace tarvolt {
namespace {

using testing::SceneWindow;

class LongListsTest : public ::testing::Test {
protected:
    /// All rows that exist, in sight or not.
    static int built(QQuickItem* list, const QString& name) {
        int count = 0;
        for (const QQuickItem* child : list->property("contentItem").value<QQuickItem*>()->childItems()) {
            count += child->objectName() == name ? 1 : 0;
        }
        return count;
    }

    void showProjects(int count) {
        std::vector<MPCProject> projects;
        for (int i = 0; i < count; ++i) {
            projects.emplace_back("Song " + std::to_string(i), "/p/x.xpj", std::nullopt, 0, 1);
        }
        w.view->scanner->folderURL.set("/p");
        w.view->scanner->projects.set(std::move(projects));
        w.settle();
    }

    void log(int lines) {
        for (int i = 0; i < lines; ++i) {
            w.view->scanner->log("line " + std::to_string(i), false);
        }
        w.settle();
    }

    double logTop() const {
        const QQuickItem* list = w.find("logList");
        return list->property("contentY").toDouble() - list->property("originY").toDouble();
    }

    SceneWindow w;
};

TEST(WindowStart, MakesOnlyWhatIsSeen) {
    SceneWindow w;
    const std::vector<QString> later{"headerActions", "splitArea", "emptyStateView", "panelFace"};
    for (const auto& name : later) {
        EXPECT_EQ(w.window->findChild<QQuickItem*>(name), nullptr) << name.toStdString();
    }
    w.addProject("Blue Hour");
    w.choose();
    EXPECT_NE(w.window->findChild<QQuickItem*>("splitArea"), nullptr);
    EXPECT_EQ(w.window->findChild<QQuickItem*>("emptyStateView"), nullptr);
}

TEST_F(LongListsTest, BuildOnlyTheVisibleRowsOfTwentyThousandProjects) {
    showProjects(20000);
    QQuickItem* list = w.find("projectList");
    EXPECT_EQ(list->property("count").toInt(), 20000);
    EXPECT_LT(built(list, "projectRow"), 30);
    w.find("projectList")->forceActiveFocus(Qt::TabFocusReason);
    w.press(Qt::Key_End);
    w.settle();
    EXPECT_LT(built(list, "projectRow"), 40);
    EXPECT_EQ(w.window->activeFocusItem()->property("spokenName").toString(), "Rename Song 19999");
}

TEST_F(LongListsTest, FilterTwentyThousandProjectsWhileTyping) {
    showProjects(20000);
    w.find("searchField")->forceActiveFocus();
    const QString typed = "19999";
    for (const QChar& character : typed) {
        w.type(character);
        QCoreApplication::processEvents();
        EXPECT_LT(built(w.find("projectList"), "projectRow"), 40) << "rows are built for what is in sight only";
    }
    EXPECT_EQ(w.findAll("projectRow").size(), 1U);
}

TEST_F(LongListsTest, BuildOnlyTheVisibleLinesOfTenThousand) {
    showProjects(1);
    log(10000);
    EXPECT_EQ(w.find("logList")->property("count").toInt(), 10000);
    EXPECT_LT(built(w.find("logList"), "logRow"), 60);
}

TEST_F(LongListsTest, ShowTheNewestLineAtTheTopAndBuildOneRowForIt) {
    showProjects(1);
    log(10'000);
    EXPECT_EQ(logTop(), 0);
    std::vector<QQuickItem*> before = w.findAll("logRow");
    w.view->scanner->log("newest", true);
    w.settle();
    const auto after = w.findAll("logRow");
    EXPECT_EQ(logTop(), 0);
    EXPECT_EQ(w.findAll("logMessage").front()->property("text").toString(), "newest");
    EXPECT_NEAR(SceneWindow::boxOf(after.front()).top(), w.box("logList").top(), 0.5);
    int built = 0;
    for (QQuickItem* row : after) {
        built += std::ranges::find(before, row) == before.end() ? 1 : 0;
    }
    EXPECT_EQ(built, 1);
}

TEST_F(LongListsTest, KeepTheReadersPlaceWhenALineArrives) {
    showProjects(1);
    log(100);
    QQuickItem* list = w.find("logList");
    list->setProperty("contentY", list->property("originY").toDouble() + 600);
    w.settle();
    const auto lookedAt = [&] {
        const auto rows = w.findAll("logMessage"); // some of them out of sight
        const auto inSight = [&](QQuickItem* row) { return w.box("logList").contains(SceneWindow::boxOf(row)); };
        QQuickItem* const row = *std::ranges::find_if(rows, inSight);
        return std::pair(row->property("text").toString(), SceneWindow::boxOf(row).top());
    };
    const auto before = lookedAt();
    log(3);
    EXPECT_EQ(lookedAt(), before);
}

} // namespace
} // namespace tarvolt
