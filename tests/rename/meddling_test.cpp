// Another process works in the folder during a rename: nothing of theirs is removed, and nothing of ours is lost.
#include "model/mpc_scanner.h"
#include "rename/rename_error.h"
#include "tests/support/scene.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <functional>
#include <string>

namespace tarvolt {
namespace {

using ::testing::ElementsAre;

class Meddling : public ::testing::Test {
protected:
    Meddling() {
        disk.addFolder("/p");
        disk.addFile("/p/Song.xpj", "Song_[ProjectData]");
        disk.addFolder("/p/Song_[ProjectData]");
        scanner->folderURL.set("/p");
    }

    /// Renames Song to Beat; `meddle` runs just before the operation that starts with `operation`.
    std::string rename(const std::string& operation, const std::function<void()>& meddle) {
        disk.onCall = [&](const std::string& line) {
            if (line.starts_with(operation)) {
                meddle();
            }
        };
        try {
            scanner->rename({"Song", "/p/Song.xpj", "/p/Song_[ProjectData]", 0, 0}, "Beat");
            return "renamed";
        } catch (const RenameError& error) {
            return error.errorDescription();
        }
    }

    testing::Scene scene;
    testing::FakeFileManager& disk = *scene.disk;
    std::shared_ptr<MPCScanner> scanner = MPCScanner::create(scene.services());
};

TEST_F(Meddling, KeepsAFileThatAppearsAfterTheExistenceTest) {
    EXPECT_EQ(rename("create", [&] { disk.addFile("/p/Beat.xpj", "foreign"); }), "Failed to write file: Beat.xpj");
    EXPECT_THAT(disk.disk(),
                ElementsAre("/p/", "/p/Beat.xpj=foreign", "/p/Song.xpj=Song_[ProjectData]", "/p/Song_[ProjectData]/"));
}

TEST_F(Meddling, LeavesAForeignFileAloneWhenRollingBack) {
    EXPECT_EQ(rename("move",
                     [&] {
                         disk.addFile("/p/Beat.xpj", "foreign");
                         disk.addFolder("/p/Beat_[ProjectData]");
                     }),
              "Failed to write file: Could not rename data folder: File exists");
    EXPECT_THAT(disk.disk(), ElementsAre("/p/", "/p/Beat.xpj=foreign", "/p/Beat_[ProjectData]/",
                                         "/p/Song.xpj=Song_[ProjectData]", "/p/Song_[ProjectData]/"));
}

TEST_F(Meddling, DoesNotMoveADifferentFolderThanTheOneItSaw) {
    EXPECT_EQ(rename("move", [&] { disk.addFolder("/p/Song_[ProjectData]"); }),
              "Failed to write file: Could not rename data folder: Device or resource busy");
    EXPECT_THAT(disk.disk(), ElementsAre("/p/", "/p/Song.xpj=Song_[ProjectData]", "/p/Song_[ProjectData]/"));
}

TEST_F(Meddling, KeepsAnOldFileThatWasSavedAgainAfterItWasRead) {
    EXPECT_EQ(rename("create", [&] { disk.addFile("/p/Song.xpj", "saved again"); }),
              "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_THAT(disk.disk(), ElementsAre("/p/", "/p/Beat.xpj=Beat_[ProjectData]", "/p/Beat_[ProjectData]/",
                                         "/p/Song.xpj=saved again"));
}

TEST_F(Meddling, KeepsAnOldFileThatWasSavedWhileItWasRead) {
    // Which of the two was read is unknown, so both are kept.
    EXPECT_EQ(rename("read", [&] { disk.addFile("/p/Song.xpj", "saved again"); }),
              "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_THAT(disk.disk(),
                ElementsAre("/p/", "/p/Beat.xpj=saved again", "/p/Beat_[ProjectData]/", "/p/Song.xpj=saved again"));
}

TEST_F(Meddling, KeepsADifferentFileThatTakesTheOldNameAtTheLastMoment) {
    EXPECT_EQ(rename("remove", [&] { disk.addFile("/p/Song.xpj", "foreign"); }),
              "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_THAT(disk.disk(),
                ElementsAre("/p/", "/p/Beat.xpj=Beat_[ProjectData]", "/p/Beat_[ProjectData]/", "/p/Song.xpj=foreign"));
}

TEST_F(Meddling, KeepsTheOldFileWhenTheNewOneHasBeenReplaced) {
    EXPECT_EQ(rename("move", [&] { disk.addFile("/p/Beat.xpj", "foreign"); }),
              "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_THAT(disk.disk(),
                ElementsAre("/p/", "/p/Beat.xpj=foreign", "/p/Beat_[ProjectData]/", "/p/Song.xpj=Song_[ProjectData]"));
}

TEST_F(Meddling, KeepsTheOldFileWhenTheNewOneIsGone) {
    EXPECT_EQ(rename("state /p/Beat.xpj", [&] { disk.lose("/p/Beat.xpj"); }),
              "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_THAT(disk.disk(), ElementsAre("/p/", "/p/Beat_[ProjectData]/", "/p/Song.xpj=Song_[ProjectData]"));
}

TEST_F(Meddling, StopsBeforeAnythingIsWrittenWhenTheOldFileCannotBeExamined) {
    // It can be read a moment later, but whether it is then still the same file is unknown.
    EXPECT_EQ(rename("exists", [&] { disk.fail("state", EIO); }), "Failed to read file: Song.xpj");
    EXPECT_THAT(disk.disk(), ElementsAre("/p/", "/p/Song.xpj=Song_[ProjectData]", "/p/Song_[ProjectData]/"));
}

TEST_F(Meddling, KeepsTheOldFileWhenTheNewOneCannotBeExamined) {
    disk.fail("state", EIO, 3);
    EXPECT_EQ(rename("nothing", [] {}), "Failed to delete: Could not remove old .xpj: Input/output error");
    EXPECT_THAT(disk.disk(), ElementsAre("/p/", "/p/Beat.xpj=Beat_[ProjectData]", "/p/Beat_[ProjectData]/",
                                         "/p/Song.xpj=Song_[ProjectData]"));
}

TEST_F(Meddling, KeepsAnOldFileThatHasAnotherNumberAndCannotBeExamined) {
    disk.fail("state", EIO, 4);
    EXPECT_EQ(rename("remove", [&] { disk.renumber("/p/Song.xpj"); }),
              "Failed to delete: Could not remove old .xpj: Input/output error");
    EXPECT_THAT(disk.disk(), ElementsAre("/p/", "/p/Beat.xpj=Beat_[ProjectData]", "/p/Beat_[ProjectData]/",
                                         "/p/Song.xpj=Song_[ProjectData]"));
}

TEST_F(Meddling, DoesNotMoveADataFolderThatCannotBeExamined) {
    disk.fail("state", EIO, 2);
    EXPECT_EQ(rename("nothing", [] {}), "Failed to write file: Could not rename data folder: Input/output error");
    EXPECT_THAT(disk.disk(), ElementsAre("/p/", "/p/Song.xpj=Song_[ProjectData]", "/p/Song_[ProjectData]/"));
}

TEST_F(Meddling, DoesNotMoveWhatAppearsAtTheDataFoldersPathWhereNothingWas) {
    disk.relocate("/p/Song_[ProjectData]", "/p/away");
    EXPECT_EQ(rename("create", [&] { disk.addFolder("/p/Song_[ProjectData]"); }),
              "Failed to write file: Could not rename data folder: Device or resource busy");
    EXPECT_THAT(disk.disk(),
                ElementsAre("/p/", "/p/Song.xpj=Song_[ProjectData]", "/p/Song_[ProjectData]/", "/p/away/"));
}

TEST_F(Meddling, KeepsTheNewFileWhenTheFolderHasItsNewNameAlthoughTheMoveFailed) {
    // As on a network drive that does the move and loses the reply.
    EXPECT_EQ(rename("move", [&] { disk.relocate("/p/Song_[ProjectData]", "/p/Beat_[ProjectData]"); }),
              "Failed to write file: Could not rename data folder: No such file or directory");
    EXPECT_THAT(disk.disk(), ElementsAre("/p/", "/p/Beat.xpj=Beat_[ProjectData]", "/p/Beat_[ProjectData]/",
                                         "/p/Song.xpj=Song_[ProjectData]"));
}

TEST_F(Meddling, ReportsAnOldFileThatIsGoneBeforeItsRemoval) {
    EXPECT_EQ(rename("move", [&] { disk.lose("/p/Song.xpj"); }),
              "Failed to delete: Could not remove old .xpj: No such file or directory");
}

} // namespace
} // namespace tarvolt
