// A second folder is chosen while the first is still being scanned, and the first scan ends last. Projects of the first
// folder are then listed under the path of the second until the next scan, and a rename takes them there.
#include "foundation/file_manager.h"
#include "tests/support/recording_file_manager.h"
#include "tests/support/renaming.h"
#include "tests/support/scene.h"
#include "tests/support/small_disk.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

namespace tarvolt {
namespace {

using ::testing::ElementsAre;
using testing::errorOfRename;
using ::testing::IsEmpty;
using testing::treeOf;

class TwoFolders : public ::testing::Test {
protected:
    TwoFolders() {
        folder.write("first/Song.xpj", "Song_[ProjectData]");
        folder.makeFolder("second");
    }

    /// Chooses the first folder and, during its scan, `second`, whose scan ends before.
    void chooseBoth(const std::filesystem::path& second) {
        disk->onCall = [&](const std::string& line) {
            if (line == "list " + first.native()) {
                scene.panel->answer = second;
                scanner->selectFolder();
                scene.background->drain();
                scene.mainQueue->drain();
            }
        };
        scene.panel->answer = first;
        scanner->selectFolder();
        scene.settle();
        ASSERT_EQ(scanner->folderURL.get(), second);
        ASSERT_THAT(testing::names(scanner->projects.get()), ElementsAre("Song"));
    }

    std::string renameTheOnlyRow() { return errorOfRename(*scanner, scanner->projects.get().front(), "Beat"); }

    const testing::TemporaryFolder folder;
    const std::filesystem::path first = folder / "first";
    const testing::Scene scene;
    const std::shared_ptr<testing::RecordingFileManager> disk =
        std::make_shared<testing::RecordingFileManager>(makePosixFileManager());
    const std::shared_ptr<MPCScanner> scanner = MPCScanner::create(scene.services(disk));
};

TEST_F(TwoFolders, ARenameTakesTheWholeProjectToTheSecond) {
    folder.write("first/Song_[ProjectData]/kick.wav", "boom");
    chooseBoth(folder / "second");
    EXPECT_EQ(renameTheOnlyRow(), "");
    EXPECT_THAT(treeOf(first), IsEmpty());
    EXPECT_THAT(treeOf(folder / "second"),
                ElementsAre("Beat.xpj=Beat_[ProjectData]", "Beat_[ProjectData]/", "Beat_[ProjectData]/kick.wav=boom"));
}

TEST_F(TwoFolders, ARenameReplacesNothingInTheSecond) {
    folder.write("first/Song_[ProjectData]/kick.wav", "boom");
    folder.write("second/Beat_[ProjectData]/snare.wav", "crack");
    chooseBoth(folder / "second");
    const auto before = folder.tree();
    EXPECT_EQ(renameTheOnlyRow(), "Failed to write file: Could not rename data folder: File exists");
    EXPECT_EQ(folder.tree(), before);
}

TEST_F(TwoFolders, ARenameAcrossDevicesChangesNothing) {
    folder.write("first/Song_[ProjectData]/kick.wav", "boom");
    const auto before = folder.tree();
    if (const auto reason = testing::withSmallDisk(100'000, [&](const std::filesystem::path& second) {
            chooseBoth(second);
            EXPECT_EQ(renameTheOnlyRow(),
                      "Failed to write file: Could not rename data folder: Invalid cross-device link");
            EXPECT_THAT(treeOf(second), IsEmpty());
        })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(folder.tree(), before);
}

TEST_F(TwoFolders, ARenameAcrossDevicesTakesAProjectWithoutADataFolder) {
    if (const auto reason = testing::withSmallDisk(100'000, [&](const std::filesystem::path& second) {
            chooseBoth(second);
            EXPECT_EQ(renameTheOnlyRow(), "");
            EXPECT_THAT(treeOf(second), ElementsAre("Beat.xpj=Beat_[ProjectData]"));
        })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_THAT(treeOf(first), IsEmpty());
}

} // namespace
} // namespace tarvolt
