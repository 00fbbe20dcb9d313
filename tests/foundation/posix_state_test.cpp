#include "foundation/file_manager.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <functional>
#include <iterator>
#include <set>
#include <string_view>

namespace tarvolt {
namespace {

using ::testing::ElementsAre;

class PosixState : public ::testing::Test {
protected:
    std::optional<FileState> state(std::string_view name) { return disk->state(folder / name); }

    testing::TemporaryFolder folder;
    std::shared_ptr<FileManager> disk = makePosixFileManager();
};

TEST_F(PosixState, StaysTheSameWhenAnItemIsOnlyRead) {
    const auto file = folder.write("a", "12345");
    const auto before = state("a");
    disk->contents(file);
    ASSERT_TRUE(before);
    EXPECT_EQ(before->size, 5);
    EXPECT_EQ(before, state("a"));
}

TEST_F(PosixState, ChangesWhenAFileIsWrittenToOrReplaced) {
    const auto file = folder.write("a", "12345");
    std::filesystem::last_write_time(file, std::filesystem::file_time_type{});
    const auto before = state("a");
    folder.write("a", "54321");
    const auto written = state("a");
    EXPECT_NE(before, written);
    EXPECT_EQ(before->identity, written->identity);
    folder.write("b", "54321");
    std::filesystem::rename(folder / "b", file);
    EXPECT_NE(state("a")->identity, before->identity);
}

TEST_F(PosixState, DistinguishesTwoWritesInOneSecond) {
    using std::chrono::nanoseconds;
    const auto file = folder.write("a", "12345");
    const std::filesystem::file_time_type second{};
    std::filesystem::last_write_time(file, second);
    const auto before = state("a");
    std::filesystem::last_write_time(file, second + nanoseconds(1000));
    const auto after = state("a");
    EXPECT_EQ(after->modified, before->modified);
    EXPECT_EQ(after->modifiedNanoseconds - before->modifiedNanoseconds, 1000);
    EXPECT_NE(before, after);
}

TEST_F(PosixState, ChangesInItsLastChangeOnlyWhenOnlyRightsDo) {
    using std::chrono::steady_clock;
    const auto file = folder.write("a", "12345");
    const auto before = state("a");
    const auto isChanged = [&] { return state("a")->changed != before->changed; };
    const auto deadline = steady_clock::now() + std::chrono::seconds(5);
    while (!isChanged() && steady_clock::now() < deadline) { // a file system's clock has coarse ticks
        ASSERT_EQ(::chmod(file.c_str(), 0600), 0);
    }
    EXPECT_TRUE(isChanged());
    EXPECT_EQ(before, state("a"));
}

TEST_F(PosixState, DistinguishesTheKindsOfItems) {
    folder.write("file", "");
    folder.write("second", "");
    folder.makeFolder("folder");
    std::filesystem::create_symlink("file", folder / "link");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(state("file")->kind, state("second")->kind);
    const std::set<std::uint32_t> kinds{state("file")->kind, state("folder")->kind, state("link")->kind,
                                        state("pipe")->kind};
    EXPECT_EQ(kinds.size(), 4U);
}

TEST_F(PosixState, IsRenumberedWhenNothingButItsNumberDiffers) {
    folder.write("a", "12345");
    const auto before = *state("a");
    FileState later = before;
    ++later.identity.inode;
    EXPECT_TRUE(before.isRenumbered(later));
    const std::function<void(FileState&)> differences[] = {
        [](auto& other) { ++other.identity.device; },
        [](auto& other) { ++other.kind; },
        [](auto& other) { ++other.size; },
        [](auto& other) { ++other.modified; },
        [](auto& other) { ++other.modifiedNanoseconds; },
        [](auto& other) { ++other.changed; },
    };
    for (std::size_t row = 0; row < std::size(differences); ++row) {
        FileState other = later;
        differences[row](other);
        EXPECT_FALSE(before.isRenumbered(other)) << "row " << row;
    }
}

TEST_F(PosixState, CoversDatesBeyondNanosecondsIn64Bits) {
    const auto file = folder.write("a", "12345");
    for (const std::time_t seconds : {15'000'000'000, -10'000'000'000, 253'402'300'799}) {
        const timespec date[] = {{seconds, 999'999'999}, {seconds, 999'999'999}};
        ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), date, 0), 0) << seconds;
        struct stat status {};
        ASSERT_EQ(::lstat(file.c_str(), &status), 0); // a file system may have stored the nearest date it supports
        EXPECT_EQ(state("a")->modified, status.st_mtim.tv_sec) << seconds;
        EXPECT_EQ(state("a")->modifiedNanoseconds, status.st_mtim.tv_nsec) << seconds;
    }
}

TEST_F(PosixState, DescribesALinkItselfAndSurvivesAMove) {
    folder.write("target", "x");
    std::filesystem::create_symlink("target", folder / "link");
    EXPECT_NE(state("link")->identity, state("target")->identity);
    const auto before = state("target");
    disk->moveItem(folder / "target", folder / "moved", before->identity);
    EXPECT_EQ(state("moved")->identity, before->identity);
}

TEST_F(PosixState, IsAbsentWhereThereIsNothing) {
    EXPECT_FALSE(state("nothing"));
    EXPECT_FALSE(state(std::string(256, 'x')));
    folder.write("cut", "x");
    EXPECT_FALSE(state("cut/off"));
    EXPECT_FALSE(state(std::string_view("cut\0off", 7)));
}

TEST_F(PosixState, ReportsWhyItCannotBeDetermined) {
    std::filesystem::create_symlink("circle", folder / "circle");
    try {
        state("circle/item");
        ADD_FAILURE() << "a state was made up";
    } catch (const FileError& error) {
        EXPECT_EQ(error.code().value(), ELOOP);
        EXPECT_EQ(error.path(), folder / "circle/item");
    }
    EXPECT_FALSE(disk->fileExists(folder / "circle/item"));
}

TEST_F(PosixState, KeepsAMoveFromTakingTheWrongItem) {
    folder.makeFolder("data");
    const auto meant = state("data");
    std::filesystem::rename(folder / "data", folder / "elsewhere");
    folder.makeFolder("data");
    try {
        disk->moveItem(folder / "data", folder / "to", meant->identity);
        ADD_FAILURE() << "another folder was moved";
    } catch (const FileError& error) {
        EXPECT_EQ(error.code().value(), EBUSY);
    }
    EXPECT_THAT(folder.tree(), ElementsAre("data/", "elsewhere/"));
}

} // namespace
} // namespace tarvolt
