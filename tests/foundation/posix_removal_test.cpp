#include "foundation/file_manager.h"
#include "tests/support/call_faults.h"
#include "tests/support/file_contents.h"
#include "tests/support/privileges.h"
#include "tests/support/state_of.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/syscall.h>

#include <cerrno>

namespace tarvolt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

class PosixRemoval : public ::testing::Test {
protected:
    int errorOfRemoval(const std::filesystem::path& path) const {
        return errorOfRemoval(path, testing::stateOf(*disk, path));
    }

    int errorOfRemoval(const std::filesystem::path& path, const FileState& onlyIf) const {
        try {
            disk->removeItem(path, onlyIf);
        } catch (const FileError& failure) {
            return failure.code().value();
        }
        return 0;
    }

    const TemporaryFolder folder;
    const std::shared_ptr<FileManager> disk = makePosixFileManager();
};

TEST_F(PosixRemoval, TakesTheFile) {
    EXPECT_EQ(errorOfRemoval(folder.write("file", "text")), 0);
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST_F(PosixRemoval, RemovesALinkAndLeavesItsTarget) {
    folder.write("target", "text");
    std::filesystem::create_symlink("target", folder / "link");
    EXPECT_EQ(errorOfRemoval(folder / "link"), 0);
    EXPECT_THAT(folder.tree(), ElementsAre("target=text"));
}

TEST_F(PosixRemoval, NeverRemovesAFolder) {
    folder.makeFolder("empty");
    EXPECT_EQ(errorOfRemoval(folder / "empty"), EISDIR);
    EXPECT_THAT(folder.tree(), ElementsAre("empty/"));
}

TEST_F(PosixRemoval, RemovesTheCreatedFileButNotAnotherOfItsName) {
    const auto created = disk->createFile(folder / "New.xpj", testing::inOnePart("text"));
    ASSERT_TRUE(created);
    // The created file is kept under another name, so that the other one cannot get its inode number.
    std::filesystem::rename(folder / "New.xpj", folder / "elsewhere");
    folder.write("New.xpj", "of another program");
    EXPECT_EQ(errorOfRemoval(folder / "New.xpj", *created), EBUSY);
    EXPECT_EQ(errorOfRemoval(folder / "gone", *created), ENOENT);
    EXPECT_EQ(errorOfRemoval(folder / "elsewhere", *created), 0);
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=of another program"));
}

TEST_F(PosixRemoval, LeavesTheCreatedFileAloneOnceItWasWrittenTo) {
    const auto created = disk->createFile(folder / "New.xpj", testing::inOnePart("text"));
    folder.write("New.xpj", "of another program");
    EXPECT_EQ(errorOfRemoval(folder / "New.xpj", *created), EBUSY);
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=of another program"));
}

TEST_F(PosixRemoval, ReportsWhyItFailed) {
    const auto kept = folder.write("closed/kept", "text");
    ASSERT_EQ(::chmod((folder / "closed").c_str(), 0500), 0);
    EXPECT_EQ(errorOfRemoval(folder / "gone"), ENOENT);
    EXPECT_EQ(errorOfRemoval(folder / "gone/file"), ENOENT);
    EXPECT_EQ(errorOfRemoval(folder / std::string_view("file\0x", 6)), EINVAL);
    testing::withoutPrivileges([&] { EXPECT_EQ(errorOfRemoval(kept), EACCES); });
    EXPECT_TRUE(std::filesystem::exists(kept));
}

TEST_F(PosixRemoval, FindsAnItemInTheRootFolder) {
    // Found, but left alone because it is not the one meant.
    EXPECT_EQ(errorOfRemoval("/proc", FileState{}), EBUSY);
}

TEST_F(PosixRemoval, FlushesTheFolderAndIgnoresAFailureOfThat) {
    folder.write("file", "text");
    int synchronised = 0;
    const auto failing = [&](const testing::SystemCall&) {
        ++synchronised;
        return std::optional<long>(-EIO);
    };
    if (const auto reason =
            testing::withCallsAnswered({SYS_fsync}, failing, [&] { EXPECT_EQ(errorOfRemoval(folder / "file"), 0); })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(synchronised, 1);
    EXPECT_THAT(folder.tree(), IsEmpty());
}

class PosixExistence : public PosixRemoval {};

TEST_F(PosixExistence, IsThatOfTheItemItself) {
    folder.write("file", "text");
    folder.makeFolder("folder");
    std::filesystem::create_symlink("nowhere", folder / "dangling");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const char* name : {"file", "folder", "dangling", "pipe"}) {
        EXPECT_TRUE(disk->fileExists(folder / name)) << name;
    }
}

TEST_F(PosixExistence, IsFalseForImpossiblePaths) {
    folder.write("file", "text");
    EXPECT_FALSE(disk->fileExists(folder / "gone"));
    EXPECT_FALSE(disk->fileExists(folder / "file/inside"));
    EXPECT_FALSE(disk->fileExists(folder / std::string(256, 'n')));
    EXPECT_FALSE(disk->fileExists(folder / std::string_view("file\0x", 6)));
}

} // namespace
} // namespace tarvolt
