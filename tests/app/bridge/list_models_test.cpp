#include "app/bridge/log_model.h"
#include "app/bridge/project_list_model.h"

#include "tests/app/bridge/print_qt.h"
#include "tests/support/process_time_zone.h"
#include "tests/support/scene.h"

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvolt {
namespace {

MPCProject project(const std::string& name) {
    return {name, "/p/" + name + ".xpj", std::nullopt, 0, 48000};
}

class ProjectListModelTest : public ::testing::Test {
protected:
    void setProjects(std::vector<MPCProject> projects) {
        view->scanner->projects.set(std::move(projects));
        QCoreApplication::processEvents();
    }

    void setRenamed(std::optional<UUID> id) {
        view->successProject.set(id);
        QCoreApplication::processEvents();
    }

    QVariant at(int row, const char* detail) const {
        return model.data(model.index(row), model.roleNames().key(detail));
    }

    testing::Scene scene;
    std::shared_ptr<ContentView> view = ContentView::create(scene.services());
    SheetBridge sheet{view};
    ProjectListModel model{view, sheet};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
    QSignalSpy changes{&model, &QAbstractItemModel::dataChanged};
};

TEST_F(ProjectListModelTest, GivesTheTextsOfARow) {
    setProjects({MPCProject("Slow\nGlass", "/p/x.xpj", "/p/x", 12, 48000), project("Sketch \xFF")});
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(at(0, "name"), "Slow Glass");
    EXPECT_EQ(at(0, "fileCountText"), "12 files");
    EXPECT_EQ(at(0, "sizeText"), "48 KB");
    EXPECT_EQ(at(0, "hasDataFolder"), true);
    EXPECT_EQ(at(0, "buttonSentence"), "Rename Slow Glass");
    EXPECT_EQ(at(0, "detailsSentence"), "12 files, 48 KB");
    EXPECT_EQ(at(1, "name"), QStringLiteral("Sketch \uFFFD"));
    EXPECT_EQ(at(1, "hasDataFolder"), false);
    EXPECT_EQ(at(1, "sentence"), QStringLiteral("Sketch \uFFFD, 0 files, 48 KB, No data folder"));
    EXPECT_EQ(model.roleNames().size(), 8);
    EXPECT_FALSE(model.data(model.index(0), Qt::DisplayRole).isValid());
}

TEST_F(ProjectListModelTest, LeavesTheRowsAloneForTheSameRecords) {
    const std::vector<MPCProject> records{project("a"), project("b")};
    setProjects(records);
    resets.clear();
    setProjects(records);
    EXPECT_EQ(resets.size(), 0);
    setProjects({project("a"), project("b")});
    EXPECT_EQ(resets.size(), 1) << "the same names with other identities are other records";
}

TEST_F(ProjectListModelTest, HighlightsByIdentityAndReportsEachChangeOnce) {
    const std::vector<MPCProject> records{project("a"), project("b"), project("c")};
    setProjects(records);
    setRenamed(records[1].id());
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(at(1, "renamed"), true);
    EXPECT_EQ(at(0, "renamed"), false);
    EXPECT_EQ(at(1, "sentence"), "b, 0 files, 48 KB, No data folder, Renamed");
    setRenamed(records[2].id());
    EXPECT_EQ(changes.size(), 2);
    setRenamed(std::nullopt);
    EXPECT_EQ(at(2, "renamed"), false);
    changes.clear();
    setRenamed(std::nullopt);
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(ProjectListModelTest, FindsRowsAndRecords) {
    setProjects({project("a"), project("b")});
    EXPECT_EQ(model.rowShowing("b"), 1);
    EXPECT_EQ(model.rowShowing("B"), -1);
    for (const int none : {-1, 2}) {
        model.beginRename(none);
        EXPECT_FALSE(sheet.open());
    }
    model.beginRename(1);
    EXPECT_EQ(view->renamingProject.get()->baseName(), "b");
    EXPECT_FALSE(at(5, "name").isValid());
}

class LogModelTest : public ::testing::Test {
protected:
    void log(const std::string& message, bool isError = false) {
        scanner->log(message, isError);
        scene.settle();
    }

    QVariant at(int row, LogModel::Role role) const { return model.data(model.index(row), role); }

    testing::Scene scene;
    std::shared_ptr<MPCScanner> scanner = MPCScanner::create(scene.services());
    const testing::ProcessTimeZone zone{"UTC0"};
    LogModel model{*scanner};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy inserts{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
};

TEST_F(LogModelTest, InsertsNewLinesAtTheTopOnceForATurn) {
    log("a");
    QCoreApplication::processEvents();
    log("b", true);
    log("c");
    EXPECT_EQ(model.rowCount(), 1) << "what has not been taken in is not there yet";
    EXPECT_EQ(at(0, LogModel::messageRole), "a");
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    ASSERT_EQ(inserts.size(), 2);
    EXPECT_EQ(inserts.at(1).at(1).toInt(), 0);
    EXPECT_EQ(inserts.at(1).at(2).toInt(), 1);
    EXPECT_EQ(resets.size(), 0);
    EXPECT_EQ(at(0, LogModel::messageRole), "c");
    EXPECT_EQ(at(1, LogModel::messageRole), "b");
    EXPECT_EQ(at(1, LogModel::isErrorRole), true);
    EXPECT_EQ(at(2, LogModel::messageRole), "a");
}

TEST_F(LogModelTest, GivesTheTimeAndTheSentence) {
    log("Scan error: no", true);
    log("two\nlines");
    QCoreApplication::processEvents();
    EXPECT_EQ(at(0, LogModel::timeRole), "12:00:00 AM");
    EXPECT_EQ(at(0, LogModel::messageRole), "two\nlines") << "verbatim";
    EXPECT_EQ(at(0, LogModel::sentenceRole), "two lines, 12:00:00 AM");
    EXPECT_EQ(at(1, LogModel::sentenceRole), "Scan error: no, 12:00:00 AM");
    EXPECT_EQ(model.roleNames().size(), 4);
}

} // namespace
} // namespace tarvolt
