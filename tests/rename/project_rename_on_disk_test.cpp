#include "foundation/file_manager.h"
#include "tests/support/file_contents.h"
#include "tests/support/plain_posix.h"
#include "tests/support/privileges.h"
#include "tests/support/recording_file_manager.h"
#include "tests/support/renaming.h"
#include "tests/support/sanitizers.h"
#include "tests/support/scene.h"
#include "tests/support/small_disk.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>
#include <fstream>
#include <functional>

namespace tarvolt {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testing::errorOfRename;
using testing::projectIn;
using testing::TemporaryFolder;

class ProjectRenameOnDisk : public ::testing::Test {
protected:
    ProjectRenameOnDisk() { scanner->folderURL.set(folder.path()); }

    void makeSong() const {
        folder.write("Song.xpj", "<a>Song_[ProjectData]/kick.wav</a>");
        folder.write("Song_[ProjectData]/kick.wav", "boom");
    }

    std::string rename(const std::string& newName) {
        return errorOfRename(*scanner, projectIn(folder.path()), newName);
    }

    /// Has `meddle` run as another program just before the data folder is moved.
    void beforeTheMove(std::function<void()> meddle) {
        disk->onCall = [meddle = std::move(meddle)](const std::string& line) {
            if (line.starts_with("move ")) {
                meddle();
            }
        };
    }

    /// Renames and expects this failure and no change on disk.
    void expectUnchanged(const std::string& newName, const std::string& error) {
        const auto before = folder.tree();
        EXPECT_EQ(rename(newName), error);
        EXPECT_EQ(folder.tree(), before);
    }

    const TemporaryFolder folder;
    const testing::Scene scene;
    const std::shared_ptr<testing::RecordingFileManager> disk =
        std::make_shared<testing::RecordingFileManager>(makePosixFileManager());
    const std::shared_ptr<MPCScanner> scanner = MPCScanner::create(scene.services(disk));
};

TEST_F(ProjectRenameOnDisk, GivesFileFolderAndReferencesTheNewName) {
    makeSong();
    EXPECT_EQ(rename("Beat"), "");
    EXPECT_THAT(folder.tree(), ElementsAre("Beat.xpj=<a>Beat_[ProjectData]/kick.wav</a>", "Beat_[ProjectData]/",
                                           "Beat_[ProjectData]/kick.wav=boom"));
    scene.settle();
    EXPECT_THAT(testing::messages(*scanner), ElementsAre("Renamed \"Song\" \u2192 \"Beat\""));
    const auto at = [&](const char* name) { return (folder / name).native(); };
    EXPECT_THAT(disk->traffic(),
                ElementsAre("exists " + at("Beat.xpj"), "state " + at("Song.xpj"), "state " + at("Song_[ProjectData]"),
                            "read " + at("Song.xpj"), "create " + at("Beat.xpj"),
                            "move " + at("Song_[ProjectData]") + " -> " + at("Beat_[ProjectData]"),
                            "state " + at("Beat.xpj"), "remove " + at("Song.xpj")));
}

TEST_F(ProjectRenameOnDisk, ThereAndBackRestoresTheTree) {
    makeSong();
    const auto before = folder.tree();
    EXPECT_EQ(rename("Caf\u00e9 & co"), "");
    EXPECT_EQ(errorOfRename(*scanner, projectIn(folder.path(), "Caf\u00e9 & co"), "Song"), "");
    EXPECT_EQ(folder.tree(), before);
}

TEST_F(ProjectRenameOnDisk, InLetterCaseOnlySucceedsOnACaseSensitiveFileSystem) {
    makeSong();
    EXPECT_EQ(rename("SONG"), "");
    EXPECT_THAT(folder.tree(), ElementsAre("SONG.xpj=<a>SONG_[ProjectData]/kick.wav</a>", "SONG_[ProjectData]/",
                                           "SONG_[ProjectData]/kick.wav=boom"));
}

TEST_F(ProjectRenameOnDisk, ThatChangesOnlyTheExtensionCannotMoveTheDataFolderOntoItself) {
    folder.write("Song.XPJ", "Song_[ProjectData]");
    folder.write("Song_[ProjectData]/kick.wav", "boom");
    const MPCProject project("Song", folder / "Song.XPJ", folder / "Song_[ProjectData]", 0, 0);
    const auto before = folder.tree();
    EXPECT_EQ(errorOfRename(*scanner, project, "Song"),
              "Failed to write file: Could not rename data folder: File exists");
    EXPECT_EQ(folder.tree(), before);
    const MPCProject withoutDataFolder("Song", folder / "Song.XPJ", std::nullopt, 0, 0);
    EXPECT_EQ(errorOfRename(*scanner, withoutDataFolder, "Song"), "");
    EXPECT_THAT(folder.tree(),
                ElementsAre("Song.xpj=Song_[ProjectData]", "Song_[ProjectData]/", "Song_[ProjectData]/kick.wav=boom"));
}

TEST_F(ProjectRenameOnDisk, FailsToReadInAFolderThatIsGone) {
    fs::remove(folder.path());
    EXPECT_EQ(rename("Beat"), "Failed to read file: Song.xpj");
}

TEST_F(ProjectRenameOnDisk, FailsToReadAPipeAndDoesNotWaitForIt) {
    ASSERT_EQ(::mkfifo((folder / "Song.xpj").c_str(), 0600), 0);
    expectUnchanged("Beat", "Failed to read file: Song.xpj");
}

TEST_F(ProjectRenameOnDisk, FailsToReadAFolderThatIsNamedLikeAProject) {
    folder.makeFolder("Song.xpj");
    expectUnchanged("Beat", "Failed to read file: Song.xpj");
}

TEST_F(ProjectRenameOnDisk, FailsToReadThroughADanglingLink) {
    fs::create_symlink("nowhere", folder / "Song.xpj");
    expectUnchanged("Beat", "Failed to read file: Song.xpj");
}

TEST_F(ProjectRenameOnDisk, ReadsALinkedProjectFileThroughItsLinkAndRemovesOnlyTheLink) {
    folder.write("elsewhere/real", "Song_[ProjectData]");
    fs::create_symlink("elsewhere/real", folder / "Song.xpj");
    EXPECT_EQ(errorOfRename(*scanner, testing::projectWithoutDataFolderIn(folder.path()), "Beat"), "");
    EXPECT_THAT(folder.tree(),
                ElementsAre("Beat.xpj=Beat_[ProjectData]", "elsewhere/", "elsewhere/real=Song_[ProjectData]"));
}

TEST_F(ProjectRenameOnDisk, FailsToWriteANameThatIsTooLongForTheFile) {
    makeSong();
    const std::string name(252, 'n');
    expectUnchanged(name, "Failed to write file: " + name + ".xpj");
}

TEST_F(ProjectRenameOnDisk, RollsBackANameThatIsTooLongOnlyForTheDataFolder) {
    makeSong();
    for (const std::size_t length : {242U, 251U}) {
        expectUnchanged(std::string(length, 'n'),
                        "Failed to write file: Could not rename data folder: File name too long");
    }
}

TEST_F(ProjectRenameOnDisk, AcceptsTheLongestNameThatTheDataFolderCanHave) {
    makeSong();
    EXPECT_EQ(rename(std::string(241, 'n')), "");
}

/// In a folder whose path is so long that Song_[ProjectData] in it has the longest path there can be.
class ProjectRenameDeepDown : public ProjectRenameOnDisk {
protected:
    ProjectRenameDeepDown() {
        fs::path deep = folder.path();
        constexpr std::size_t length = PATH_MAX - sizeof "/Song_[ProjectData]";
        while (deep.native().size() < length) {
            const std::size_t left = length - deep.native().size() - 1;
            deep /= std::string(left > 202 ? 200 : left, 'd');
        }
        fs::create_directories(deep / "Song_[ProjectData]");
        std::ofstream(deep / "Song.xpj") << "Song_[ProjectData]";
        scanner->folderURL.set(deep);
    }

    std::string rename(const std::string& newName) {
        return errorOfRename(*scanner, projectIn(*scanner->folderURL.get()), newName);
    }
};

TEST_F(ProjectRenameDeepDown, SucceedsUpToTheLongestPath) {
    EXPECT_EQ(rename("Beat"), "");
    EXPECT_TRUE(folder.tree().back().ends_with("/Beat_[ProjectData]/"));
}

TEST_F(ProjectRenameDeepDown, FailsToWriteAProjectFileWithALongerPath) {
    const auto before = folder.tree();
    const std::string name(40, 'n');
    EXPECT_EQ(rename(name), "Failed to write file: " + name + ".xpj");
    EXPECT_TRUE(folder.tree() == before); // too long to be printed
}

TEST_F(ProjectRenameDeepDown, RollsBackWhenOnlyTheDataFolderWouldHaveALongerPath) {
    const auto before = folder.tree();
    EXPECT_EQ(rename("Beats"), "Failed to write file: Could not rename data folder: File name too long");
    EXPECT_TRUE(folder.tree() == before);
}

TEST_F(ProjectRenameOnDisk, FailsToReadAHoleThatIsLargerThanTheMemory) {
    makeSong();
    fs::resize_file(folder / "Song.xpj", std::uintmax_t{1} << 40U);
    EXPECT_EQ(rename("Beat"), "Failed to read file: Song.xpj");
    fs::resize_file(folder / "Song.xpj", 3);
    EXPECT_THAT(folder.tree(), ElementsAre("Song.xpj=<a>", "Song_[ProjectData]/", "Song_[ProjectData]/kick.wav=boom"));
}

TEST_F(ProjectRenameOnDisk, NeverCutsANameAtANulByte) {
    makeSong();
    const std::string name("Be\0at", 5);
    expectUnchanged(name, "Failed to write file: " + name + ".xpj");
}

TEST_F(ProjectRenameOnDisk, FailsIfADanglingLinkHasTheNameOfTheNewFile) {
    makeSong();
    fs::create_symlink("nowhere", folder / "Beat.xpj");
    expectUnchanged("Beat", "A project named \"Beat\" already exists.");
}

TEST_F(ProjectRenameOnDisk, RollsBackWhenALinkHasTheNameOfTheNewDataFolder) {
    makeSong();
    fs::create_symlink("nowhere", folder / "Beat_[ProjectData]");
    expectUnchanged("Beat", "Failed to write file: Could not rename data folder: File exists");
}

TEST_F(ProjectRenameOnDisk, RollsBackWhenTheDataFolderIsGone) {
    folder.write("Song.xpj", "text");
    expectUnchanged("Beat", "Failed to write file: Could not rename data folder: No such file or directory");
}

TEST_F(ProjectRenameOnDisk, CannotEncodeALoneSurrogate) {
    makeSong();
    expectUnchanged("Be\xed\xa0\x80", "Failed to write file: Could not encode updated XML");
}

#if !TARVOLT_UNDER_SANITIZER
/// Runs `body` in a process that may take so many bytes of memory more than it has.
void withMoreMemory(std::size_t bytes, const std::function<void()>& body) {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_AS, &before), 0);
    rlimit limited = before;
    limited.rlim_cur = pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)) + bytes;
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &limited), 0);
    body();
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &before), 0);
}

TEST_F(ProjectRenameOnDisk, HoldsTheTextInMemoryOnce) {
    constexpr std::size_t size = 64'000'000;
    makeSong();
    {
        std::ofstream file(folder / "Song.xpj");
        const std::string between(100, 'x');
        while (static_cast<std::size_t>(file.tellp()) < size) {
            file << between << "Song_[ProjectData]";
        }
    }
    std::string error;
    withMoreMemory(size + (8U << 20U), [&] { error = rename("A longer name"); });
    EXPECT_EQ(error, "");
    EXPECT_GT(fs::file_size(folder / "A longer name.xpj"), size);
}
#endif

TEST_F(ProjectRenameOnDisk, LeavesTheProjectAsItWasWhenTheDiskFillsUpDuringTheWrite) {
    const auto reason = testing::withSmallDisk(1'000'000, [&](const fs::path& small) {
        scanner->folderURL.set(small);
        const std::string text(700'000, 'x');
        fs::create_directory(small / "Song_[ProjectData]");
        const auto made = makePosixFileManager();
        ASSERT_TRUE(made->createFile(small / "Song.xpj", testing::inOnePart(text)));
        EXPECT_EQ(errorOfRename(*scanner, projectIn(small), "Beat"), "Failed to write file: Beat.xpj");
        EXPECT_EQ(testing::contentsOf(*made, small / "Song.xpj"), text);
        EXPECT_TRUE(fs::exists(small / "Song_[ProjectData]"));
        EXPECT_EQ(std::distance(fs::directory_iterator(small), {}), 2);
    });
    if (reason) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(ProjectRenameOnDisk, RollsBackWhenTheDataFolderIsOnAnotherDevice) {
    makeSong();
    const auto before = folder.tree();
    const auto reason = testing::withSmallDisk(100'000, [&](const fs::path& other) {
        fs::create_directory(other / "Song_[ProjectData]");
        const MPCProject project("Song", folder / "Song.xpj", other / "Song_[ProjectData]", 0, 0);
        EXPECT_EQ(errorOfRename(*scanner, project, "Beat"),
                  "Failed to write file: Could not rename data folder: Invalid cross-device link");
        EXPECT_TRUE(fs::exists(other / "Song_[ProjectData]"));
    });
    if (reason) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(folder.tree(), before);
}

TEST_F(ProjectRenameOnDisk, RollsBackWithoutWritePermissionForTheDataFoldersFolder) {
    folder.write("chosen/readme", "");
    folder.write("closed/Song.xpj", "text");
    folder.makeFolder("closed/Song_[ProjectData]");
    ASSERT_EQ(::chmod((folder / "closed").c_str(), 0500), 0);
    scanner->folderURL.set(folder / "chosen");
    const auto before = folder.tree();
    testing::withoutPrivileges([&] {
        EXPECT_EQ(errorOfRename(*scanner, projectIn(folder / "closed"), "Beat"),
                  "Failed to write file: Could not rename data folder: Permission denied");
    });
    EXPECT_EQ(folder.tree(), before);
}

TEST_F(ProjectRenameOnDisk, KeepsEverythingWithoutWritePermissionForTheOldFilesFolder) {
    folder.makeFolder("chosen");
    folder.write("closed/Song.xpj", "Song_[ProjectData]");
    ASSERT_EQ(::chmod((folder / "closed").c_str(), 0500), 0);
    scanner->folderURL.set(folder / "chosen");
    testing::withoutPrivileges([&] {
        EXPECT_EQ(errorOfRename(*scanner, testing::projectWithoutDataFolderIn(folder / "closed"), "Beat"),
                  "Failed to delete: Could not remove old .xpj: Permission denied");
    });
    EXPECT_THAT(folder.tree(), ElementsAre("chosen/", "chosen/Beat.xpj=Beat_[ProjectData]", "closed/",
                                           "closed/Song.xpj=Song_[ProjectData]"));
}

/// Sets or clears an attribute of an item as chattr does. Returns errno when that is refused.
int setAttribute(const fs::path& path, int attribute, bool on) {
    const int item = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    int attributes = 0;
    int error = item < 0 || ::ioctl(item, FS_IOC_GETFLAGS, &attributes) != 0 ? errno : 0;
    attributes = on ? attributes | attribute : attributes & ~attribute;
    if (error == 0 && ::ioctl(item, FS_IOC_SETFLAGS, &attributes) != 0) {
        error = errno;
    }
    ::close(item);
    return error;
}

TEST_F(ProjectRenameOnDisk, KeepsBothFilesWhenTheOldOneIsImmutable) {
    makeSong();
    if (const int error = setAttribute(folder / "Song.xpj", FS_IMMUTABLE_FL, true)) {
        GTEST_SKIP() << "this user or file system makes no file immutable: " << std::strerror(error);
    }
    const auto error = rename("Beat");
    setAttribute(folder / "Song.xpj", FS_IMMUTABLE_FL, false);
    EXPECT_EQ(error, "Failed to delete: Could not remove old .xpj: Operation not permitted");
    EXPECT_THAT(folder.tree(),
                ElementsAre("Beat.xpj=<a>Beat_[ProjectData]/kick.wav</a>", "Beat_[ProjectData]/",
                            "Beat_[ProjectData]/kick.wav=boom", "Song.xpj=<a>Song_[ProjectData]/kick.wav</a>"));
}

TEST_F(ProjectRenameOnDisk, LeavesTheNewFileBesideTheOldProjectInAnAppendOnlyFolder) {
    TARVOLT_SKIP_WITH_PLAIN_POSIX("write a file without a hidden name, which stays in such a folder");
    makeSong();
    if (const int error = setAttribute(folder.path(), FS_APPEND_FL, true)) {
        GTEST_SKIP() << "this user or file system lets no folder be only added to: " << std::strerror(error);
    }
    const auto error = rename("Beat");
    setAttribute(folder.path(), FS_APPEND_FL, false);
    EXPECT_EQ(error, "Failed to write file: Could not rename data folder: Operation not permitted");
    EXPECT_THAT(folder.tree(), ElementsAre("Beat.xpj=<a>Beat_[ProjectData]/kick.wav</a>",
                                           "Song.xpj=<a>Song_[ProjectData]/kick.wav</a>", "Song_[ProjectData]/",
                                           "Song_[ProjectData]/kick.wav=boom"));
}

TEST_F(ProjectRenameOnDisk, RollsBackWhenTheDataFolderIsImmutable) {
    makeSong();
    const auto data = folder / "Song_[ProjectData]";
    if (const int error = setAttribute(data, FS_IMMUTABLE_FL, true)) {
        GTEST_SKIP() << "this user or file system makes no folder immutable: " << std::strerror(error);
    }
    const auto before = folder.tree();
    const auto error = rename("Beat");
    setAttribute(data, FS_IMMUTABLE_FL, false);
    EXPECT_EQ(error, "Failed to write file: Could not rename data folder: Operation not permitted");
    EXPECT_EQ(folder.tree(), before);
}

TEST_F(ProjectRenameOnDisk, KeepsAFileThatAppearsAfterTheExistenceTest) {
    makeSong();
    disk->onCall = [&](const std::string& line) {
        if (line.starts_with("create ")) {
            folder.write("Beat.xpj", "of another program");
        }
    };
    EXPECT_EQ(rename("Beat"), "Failed to write file: Beat.xpj");
    EXPECT_THAT(folder.tree(), ElementsAre("Beat.xpj=of another program", "Song.xpj=<a>Song_[ProjectData]/kick.wav</a>",
                                           "Song_[ProjectData]/", "Song_[ProjectData]/kick.wav=boom"));
}

TEST_F(ProjectRenameOnDisk, KeepsAnOldFileThatIsWrittenToInPlaceAfterItWasRead) {
    makeSong();
    beforeTheMove([&] { folder.write("Song.xpj", "saved again"); });
    EXPECT_EQ(rename("Beat"), "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_THAT(folder.tree(), ElementsAre("Beat.xpj=<a>Beat_[ProjectData]/kick.wav</a>", "Beat_[ProjectData]/",
                                           "Beat_[ProjectData]/kick.wav=boom", "Song.xpj=saved again"));
}

TEST_F(ProjectRenameOnDisk, RollsBackOnlyTheFileItCreated) {
    makeSong();
    beforeTheMove([&] {
        // The created file is kept elsewhere, so that the other one cannot get its inode number.
        fs::rename(folder / "Beat.xpj", folder / "kept elsewhere");
        folder.write("Beat.xpj", "of another program");
        folder.makeFolder("Beat_[ProjectData]");
    });
    EXPECT_EQ(rename("Beat"), "Failed to write file: Could not rename data folder: File exists");
    EXPECT_EQ(testing::readFile(folder / "Beat.xpj"), "of another program");
}

TEST_F(ProjectRenameOnDisk, DoesNotRollBackAFileThatWasWrittenToInPlace) {
    makeSong();
    beforeTheMove([&] {
        folder.write("Beat.xpj", "of another program"); // as with the file's number given to another
        folder.makeFolder("Beat_[ProjectData]");
    });
    EXPECT_EQ(rename("Beat"), "Failed to write file: Could not rename data folder: File exists");
    EXPECT_EQ(testing::readFile(folder / "Beat.xpj"), "of another program");
}

TEST_F(ProjectRenameOnDisk, KeepsTheOldFileWhenTheNewOneWasWrittenToInPlace) {
    makeSong();
    beforeTheMove([&] { folder.write("Beat.xpj", "of another program"); });
    EXPECT_EQ(rename("Beat"), "Failed to delete: Could not remove old .xpj: Device or resource busy");
    EXPECT_THAT(folder.tree(),
                ElementsAre("Beat.xpj=of another program", "Beat_[ProjectData]/", "Beat_[ProjectData]/kick.wav=boom",
                            "Song.xpj=<a>Song_[ProjectData]/kick.wav</a>"));
}

TEST_F(ProjectRenameOnDisk, GoesOnWhenTheFilesAreGivenOtherDatesMeanwhile) {
    makeSong();
    beforeTheMove([&] {
        for (const char* name : {"Song.xpj", "Beat.xpj"}) {
            fs::last_write_time(folder / name, fs::file_time_type::clock::now() - std::chrono::hours(1));
        }
    });
    EXPECT_EQ(rename("Beat"), "");
    EXPECT_THAT(folder.tree(), ElementsAre("Beat.xpj=<a>Beat_[ProjectData]/kick.wav</a>", "Beat_[ProjectData]/",
                                           "Beat_[ProjectData]/kick.wav=boom"));
}

} // namespace
} // namespace tarvolt
