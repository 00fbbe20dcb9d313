#include "app/bridge/log_model.h"
#include "app/bridge/project_list_model.h"

#include "app/sections/log_texts.h"
#include "tests/app/bridge/print_qt.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvolt {
namespace {

MPCProject project(const std::string& name) {
    return {name, "/p/" + name + ".xpj", std::nullopt, 0, 48000};
}

class ProjectListModelTest : public ::testing::Test {
protected:
    QVariant at(int row, ProjectListModel::Role role) const { return model.data(model.index(row), role); }

    ProjectListModel model{"en_US"};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
    QSignalSpy changes{&model, &QAbstractItemModel::dataChanged};
};

TEST_F(ProjectListModelTest, GivesTheTextsOfARow) {
    model.setProjects({MPCProject("Slow\nGlass", "/p/x.xpj", "/p/x", 12, 48000), project("Sketch \xFF")});
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(at(0, ProjectListModel::nameRole), "Slow Glass");
    EXPECT_EQ(at(0, ProjectListModel::symbolRole), "music.note.list");
    EXPECT_EQ(at(0, ProjectListModel::fileCountRole), "12 files");
    EXPECT_EQ(at(0, ProjectListModel::sizeRole), "48 KB");
    EXPECT_EQ(at(0, ProjectListModel::hasDataFolderRole), true);
    EXPECT_EQ(at(0, ProjectListModel::buttonSentenceRole), "Rename Slow Glass");
    EXPECT_EQ(at(0, ProjectListModel::detailsSentenceRole), "12 files, 48 KB");
    EXPECT_EQ(at(1, ProjectListModel::nameRole), QStringLiteral("Sketch \uFFFD"));
    EXPECT_EQ(at(1, ProjectListModel::symbolRole), "music.note");
    EXPECT_EQ(at(1, ProjectListModel::hasDataFolderRole), false);
    EXPECT_EQ(at(1, ProjectListModel::sentenceRole), QStringLiteral("Sketch \uFFFD, 0 files, 48 KB, No data folder"));
    EXPECT_EQ(model.roleNames().size(), 9);
}

TEST_F(ProjectListModelTest, LeavesTheRowsAloneForTheSameRecords) {
    const std::vector<MPCProject> records{project("a"), project("b")};
    model.setProjects(records);
    resets.clear();
    model.setProjects(records);
    EXPECT_EQ(resets.size(), 0);
    model.setProjects({project("a"), project("b")});
    EXPECT_EQ(resets.size(), 1) << "the same names with other identities are other records";
}

TEST_F(ProjectListModelTest, HighlightsByIdentityAndTellsOnlyOfTheRowsThatChange) {
    const std::vector<MPCProject> records{project("a"), project("b"), project("c")};
    model.setProjects(records);
    model.setRenamed(records[1].id());
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.at(0).at(0).toModelIndex().row(), 1);
    EXPECT_EQ(at(1, ProjectListModel::renamedRole), true);
    EXPECT_EQ(at(0, ProjectListModel::renamedRole), false);
    EXPECT_EQ(at(1, ProjectListModel::sentenceRole), "b, 0 files, 48 KB, No data folder, Renamed");
    model.setRenamed(records[2].id());
    EXPECT_EQ(changes.size(), 3);
    model.setRenamed(std::nullopt);
    EXPECT_EQ(at(2, ProjectListModel::renamedRole), false);
    changes.clear();
    model.setRenamed(std::nullopt);
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(ProjectListModelTest, FindsRowsAndRecords) {
    model.setProjects({project("a"), project("b")});
    EXPECT_EQ(model.rowOf("b"), 1);
    EXPECT_EQ(model.rowOf("B"), -1);
    EXPECT_EQ(model.projectAt(1)->baseName(), "b");
    EXPECT_FALSE(model.projectAt(2).has_value());
    EXPECT_FALSE(model.projectAt(-1).has_value());
    EXPECT_FALSE(at(5, ProjectListModel::nameRole).isValid());
}

class LogModelTest : public ::testing::Test {
protected:
    void log(const std::string& message, bool isError = false) {
        entries.emplace_front(std::chrono::system_clock::time_point{}, message, isError);
    }

    QVariant at(int row, LogModel::Role role) const { return model.data(model.index(row), role); }

    MPCScanner::LogEntries entries;
    LogModel model{entries, makeLogTimeFormatter("en_US", "UTC")};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy inserts{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
};

TEST_F(LogModelTest, InsertsNewLinesAtTheTopOnceForATurn) {
    log("a");
    model.takeNewEntries();
    log("b", true);
    log("c");
    EXPECT_EQ(model.rowCount(), 1) << "what has not been taken in is not there yet";
    EXPECT_EQ(at(0, LogModel::messageRole), "a");
    model.takeNewEntries();
    model.takeNewEntries();
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
    model.takeNewEntries();
    EXPECT_EQ(at(0, LogModel::timeRole), "12:00:00 AM");
    EXPECT_EQ(at(0, LogModel::messageRole), "two\nlines") << "verbatim";
    EXPECT_EQ(at(0, LogModel::sentenceRole), "two lines, 12:00:00 AM");
    EXPECT_EQ(at(1, LogModel::sentenceRole), "Scan error: no, 12:00:00 AM");
    EXPECT_EQ(model.roleNames().size(), 4);
}

} // namespace
} // namespace tarvolt
