// Some user-space file systems give an item a new number once the system has forgotten it. If everything else about the
// item is the same, the rename goes on. An item of another program is never taken for the project's own.
#include "model/mpc_scanner.h"
#include "rename/rename_error.h"
#include "tests/support/scene.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvolt {
namespace {

using Lines = std::vector<std::string>;

const std::string oldFile = "/p/Song.xpj=Song_[ProjectData]";
const std::string oldFolder = "/p/Song_[ProjectData]/";

class Renumbering : public ::testing::TestWithParam<const char*> {
protected:
    Renumbering() {
        disk.addFolder("/p");
        disk.addFile("/p/Song.xpj", "Song_[ProjectData]").fakeDate = 1;
        disk.addFolder("/p/Song_[ProjectData]").fakeDate = 1;
        disk.dateOfNewFiles = 2;
        scanner->folderURL.set("/p");
    }

    /// Renames Song to Beat; `meddle` runs once, just before the first operation of this name from the reading on.
    std::string rename(const std::string& operation, const std::function<void()>& meddle) {
        bool isBegun = false;
        bool isDone = false;
        disk.onCall = [&](const std::string& line) {
            isBegun = isBegun || line.starts_with("read");
            if (isBegun && !isDone && line.starts_with(operation)) {
                isDone = true;
                meddle();
            }
        };
        return rename();
    }

    std::string rename() {
        try {
            scanner->rename({"Song", "/p/Song.xpj", "/p/Song_[ProjectData]", 0, 0}, "Beat");
            return "renamed";
        } catch (const RenameError& error) {
            return error.errorDescription();
        }
    }

    void renumber() {
        for (const std::string name : {"Song.xpj", "Beat.xpj", "Song_[ProjectData]", "Beat_[ProjectData]"}) {
            disk.renumber("/p/" + name);
        }
    }

    void replaceNewFile(const std::string& text) { disk.addFile("/p/Beat.xpj", text).fakeDate = 2; }

    testing::Scene scene;
    testing::FakeFileManager& disk = *scene.disk;
    std::shared_ptr<MPCScanner> scanner = MPCScanner::create(scene.services());
};

const Lines renamed{"/p/", "/p/Beat.xpj=Beat_[ProjectData]", "/p/Beat_[ProjectData]/"};

INSTANTIATE_TEST_SUITE_P(BeforeEachOperation, Renumbering,
                         ::testing::Values("read", "create", "move", "state /p/Beat", "remove"),
                         [](const auto& test) { return std::to_string(test.index); });

TEST_P(Renumbering, DoesNotStopARename) {
    EXPECT_EQ(rename(GetParam(), [&] { renumber(); }), "renamed");
    EXPECT_EQ(disk.disk(), renamed);
}

TEST_F(Renumbering, DoesNotStopARenameIfItPausesNowAndThen) {
    disk.onCall = [&, times = 0](const std::string& line) mutable {
        if ((line.starts_with("move") || line.starts_with("remove")) && ++times % 4 != 0) {
            renumber();
        }
    };
    EXPECT_EQ(rename(), "renamed");
    EXPECT_EQ(disk.disk(), renamed);
}

TEST_F(Renumbering, StopsARenameIfItNeverPauses) {
    disk.onCall = [&](const std::string& line) {
        if (line.starts_with("move")) {
            renumber();
        }
    };
    EXPECT_EQ(rename(), "Failed to write file: Could not rename data folder: Device or resource busy");
    EXPECT_EQ(disk.disk(), Lines({"/p/", oldFile, oldFolder}));
}

TEST_F(Renumbering, RollsBackTheNewFileUnderItsNewNumber) {
    const auto meddle = [&] {
        disk.addFolder("/p/Beat_[ProjectData]");
        renumber();
    };
    EXPECT_EQ(rename("move", meddle), "Failed to write file: Could not rename data folder: File exists");
    EXPECT_EQ(disk.disk(), Lines({"/p/", "/p/Beat_[ProjectData]/", oldFile, oldFolder}));
}

TEST_F(Renumbering, DoesNotMoveAFolderThatReplacedTheDataFolder) {
    EXPECT_EQ(rename("move", [&] { disk.addFolder("/p/Song_[ProjectData]").fakeDate = 2; }),
              "Failed to write file: Could not rename data folder: Device or resource busy");
    EXPECT_EQ(disk.disk(), Lines({"/p/", oldFile, oldFolder}));
}

TEST_F(Renumbering, DoesNotMoveALinkThatReplacedTheDataFolder) {
    EXPECT_EQ(rename("move", [&] { disk.addLink("/p/Song_[ProjectData]", "").fakeDate = 1; }),
              "Failed to write file: Could not rename data folder: Device or resource busy");
    EXPECT_EQ(disk.disk(), Lines({"/p/", oldFile, "/p/Song_[ProjectData]="}));
}

TEST_F(Renumbering, KeepsAnOldFileWhoseTextAloneDiffers) {
    EXPECT_EQ(rename("move", [&] { disk.addFile("/p/Song.xpj", "song_[ProjectData]").fakeDate = 1; }),
              "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_EQ(disk.disk(), Lines({"/p/", renamed[1], renamed[2], "/p/Song.xpj=song_[ProjectData]"}));
}

TEST_F(Renumbering, KeepsAnOldFileThatWasReplacedAfterTheLastCheck) {
    EXPECT_EQ(rename("remove", [&] { disk.addFile("/p/Song.xpj", "song_[ProjectData]").fakeDate = 1; }),
              "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_EQ(disk.disk(), Lines({"/p/", renamed[1], renamed[2], "/p/Song.xpj=song_[ProjectData]"}));
}

TEST_F(Renumbering, KeepsTheOldFileWhenTheNewOneDiffersInItsTextAlone) {
    EXPECT_EQ(rename("move", [&] { replaceNewFile("beat_[ProjectData]"); }),
              "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_EQ(disk.disk(), Lines({"/p/", "/p/Beat.xpj=beat_[ProjectData]", renamed[2], oldFile}));
}

TEST_F(Renumbering, RollsBackWithoutRemovingAFileWhoseTextAloneDiffers) {
    const auto meddle = [&] {
        disk.addFolder("/p/Beat_[ProjectData]");
        replaceNewFile("beat_[ProjectData]");
    };
    EXPECT_EQ(rename("move", meddle), "Failed to write file: Could not rename data folder: File exists");
    EXPECT_EQ(disk.disk(),
              Lines({"/p/", "/p/Beat.xpj=beat_[ProjectData]", "/p/Beat_[ProjectData]/", oldFile, oldFolder}));
}

TEST_F(Renumbering, KeepsAnOldFileThatCannotBeReadAgain) {
    const auto meddle = [&] {
        renumber();
        disk.fail("read", EIO);
    };
    EXPECT_EQ(rename("remove", meddle), "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_EQ(disk.disk(), Lines({"/p/", renamed[1], renamed[2], oldFile}));
}

TEST_F(Renumbering, KeepsAnOldFileThatGrowsWhileItIsCompared) {
    disk.onCall = [&, reads = 0](const std::string& line) mutable {
        if (line.starts_with("create")) {
            disk.renumber("/p/Song.xpj");
        } else if (line == "read /p/Song.xpj" && ++reads == 2) {
            disk.addFile("/p/Song.xpj", "Song_[ProjectData] and more");
        }
    };
    EXPECT_EQ(rename(), "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_EQ(disk.disk(), Lines({"/p/", renamed[1], renamed[2], "/p/Song.xpj=Song_[ProjectData] and more"}));
}

TEST_F(Renumbering, RecognisesTheDataFolderAtItsNewPathAlthoughTheMoveFailed) {
    const auto meddle = [&] {
        disk.relocate("/p/Song_[ProjectData]", "/p/Beat_[ProjectData]");
        renumber();
    };
    EXPECT_EQ(rename("move", meddle), "Failed to write file: Could not rename data folder: No such file or directory");
    EXPECT_EQ(disk.disk(), Lines({"/p/", renamed[1], renamed[2], oldFile}));
}

TEST_F(Renumbering, RecognisesAForeignFolderAtTheNewPathAfterAFailedMove) {
    disk.fail("move", EIO);
    EXPECT_EQ(rename("move", [&] { disk.addFolder("/p/Beat_[ProjectData]").fakeDate = 2; }),
              "Failed to write file: Could not rename data folder: Input/output error");
    EXPECT_EQ(disk.disk(), Lines({"/p/", "/p/Beat_[ProjectData]/", oldFile, oldFolder}));
}

} // namespace
} // namespace tarvolt
