// The scan on real folders with unusual contents.
#include "foundation/file_manager.h"
#include "model/folder_scan.h"
#include "model/mpc_scanner.h"
#include "tests/support/call_faults.h"
#include "tests/support/plain_posix.h"
#include "tests/support/scene.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <malloc.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

namespace tarvolt {
namespace {

namespace fs = std::filesystem;
using testing::messages;
using testing::names;
using Lines = std::vector<std::string>;

class FolderScanOnDisk : public ::testing::Test {
protected:
    const std::vector<MPCProject>& scan(const fs::path& chosen) {
        scanner->folderURL.set(chosen);
        scanner->scan();
        scene.settle();
        return scanner->projects.get();
    }
    const std::vector<MPCProject>& scan() { return scan(folder.path()); }

    testing::TemporaryFolder folder;
    testing::Scene scene;
    std::shared_ptr<MPCScanner> scanner = MPCScanner::create(scene.services(makePosixFileManager()));
};

TEST_F(FolderScanOnDisk, FindsPairsAndMeasures) {
    folder.write("Song.xpj", std::string(500, 'x'));
    folder.write("Song_[ProjectData]/a.wav", "0123456789");
    folder.write("Song_[ProjectData]/b.wav", "0123456789");
    folder.makeFolder("Song_[ProjectData]/more");
    folder.write("Song_[ProjectData]/.hidden", "much more than nothing");
    const auto& song = scan().front();
    EXPECT_EQ(song.fileCount(), 3);
    EXPECT_EQ(song.totalSize(), 520);
    EXPECT_EQ(song.xpjURL(), folder / "Song.xpj");
    EXPECT_EQ(song.dataFolderURL(), folder / "Song_[ProjectData]");
}

TEST_F(FolderScanOnDisk, FollowsNoLinkInTheFolderAndCountsLinksAsThemselves) {
    const testing::TemporaryFolder outside;
    outside.write("big.wav", std::string(100000, 'x'));
    folder.write("Song.xpj", "x");
    fs::create_directory_symlink(outside.path(), folder / "Song_[ProjectData]");
    fs::create_symlink(outside / "big.wav", folder / "Linked.xpj");
    fs::create_symlink("nowhere", folder / "Dangling.xpj");
    fs::create_symlink("Loop.xpj", folder / "Loop.xpj");
    folder.write("Beat.xpj", "x");
    fs::create_directory(folder / "Beat_[ProjectData]");
    fs::create_symlink(outside / "big.wav", folder / "Beat_[ProjectData]/big.wav");
    ASSERT_EQ(names(scan()), (Lines{"Beat", "Dangling", "Linked", "Loop", "Song"}));
    const auto& projects = scanner->projects.get();
    EXPECT_EQ(projects[0].fileCount(), 1);
    EXPECT_EQ(projects[0].totalSize(), 1 + static_cast<std::int64_t>((outside / "big.wav").native().size()));
    EXPECT_EQ(projects[1].totalSize(), static_cast<std::int64_t>(std::string("nowhere").size()));
    EXPECT_FALSE(projects[4].dataFolderURL().has_value());
    EXPECT_EQ(messages(*scanner).back(), "Found 5 .xpj file(s) and 1 data folder(s)");
}

TEST_F(FolderScanOnDisk, FollowsTheChosenFolderIfItIsALink) {
    const testing::TemporaryFolder links;
    folder.write("Song.xpj", "x");
    fs::create_directory_symlink(folder.path(), links / "link");
    ASSERT_EQ(scan(links / "link").size(), 1U);
    EXPECT_EQ(scanner->projects.get().front().xpjURL(), links / "link/Song.xpj");
}

TEST_F(FolderScanOnDisk, ListsPipesAndFoldersNamedLikeProjectsWithoutBlocking) {
    ASSERT_EQ(mkfifo((folder / "Pipe.xpj").c_str(), 0600), 0);
    folder.makeFolder("Folder.xpj");
    ASSERT_EQ(names(scan()), (Lines{"Folder", "Pipe"}));
    EXPECT_EQ(scanner->projects.get()[0].totalSize(), 0);
    EXPECT_EQ(scanner->projects.get()[1].totalSize(), 0);
}

TEST_F(FolderScanOnDisk, KeepsTheBytesOfNamesThatAreNotUtf8OrContainControls) {
    const std::string broken = "caf\xe9 \x01\n\xe2\x80\xae";
    folder.write(broken + ".xpj", "x");
    folder.makeFolder(broken + "_[ProjectData]");
    const auto& project = scan().front();
    EXPECT_EQ(project.baseName(), broken);
    EXPECT_TRUE(project.dataFolderURL().has_value());
}

TEST_F(FolderScanOnDisk, ListsTheLongestPossibleNames) {
    const std::string longest(251, 'n');
    folder.write(longest + ".xpj", "x");
    EXPECT_EQ(scan().front().baseName(), longest);
}

TEST_F(FolderScanOnDisk, CountsNothingInADataFolderThatHasVanishedSinceTheListing) {
    folder.write("Song.xpj", "x");
    folder.makeFolder("Song_[ProjectData]");
    const auto files = makePosixFileManager();
    const auto listing = listFolder(*files, folder.path());
    fs::remove(folder / "Song_[ProjectData]");
    const auto projects = measureProjects(*files, folder.path(), listing, "");
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(projects.front().fileCount(), 0);
    EXPECT_EQ(projects.front().totalSize(), 1);
}

TEST_F(FolderScanOnDisk, DoesNotEnterADataFolderThatHasBecomeALinkSinceTheListing) {
    const testing::TemporaryFolder outside;
    outside.write("big.wav", std::string(1000, 'x'));
    folder.write("Song.xpj", "x");
    folder.makeFolder("Song_[ProjectData]");
    const auto files = makePosixFileManager();
    const auto listing = listFolder(*files, folder.path());
    fs::remove(folder / "Song_[ProjectData]");
    fs::create_directory_symlink(outside.path(), folder / "Song_[ProjectData]");
    EXPECT_EQ(measureProjects(*files, folder.path(), listing, "").front().totalSize(), 1);
}

TEST_F(FolderScanOnDisk, AsksOnceForEachFileAndFourTimesForEachFolder) {
    TARVOLT_SKIP_WITH_PLAIN_POSIX("list a folder with so few calls");
    constexpr int projects = 15;
    constexpr int entries = 5;
    for (int project = 0; project < projects; ++project) {
        const auto stem = "Song " + std::to_string(project);
        folder.write(stem + ".xpj", "x");
        for (int entry = 0; entry < entries; ++entry) {
            folder.write(stem + "_[ProjectData]/" + std::to_string(entry) + ".wav", "x");
        }
    }
    const auto files = makePosixFileManager();
    int calls = 0;
    std::size_t found = 0;
    const auto counting = [&](const testing::SystemCall& call) -> std::optional<long> {
        if (call.number == SYS_clone3 || call.number == SYS_clone) {
            return -EAGAIN; // a second thread would make calls of its own
        }
        ++calls;
        return std::nullopt;
    };
    if (const auto reason = testing::withCallsAnswered(
            {SYS_openat, SYS_close, SYS_getdents64, SYS_newfstatat, SYS_fstat, SYS_fcntl, SYS_getrandom, SYS_clone3,
             SYS_clone},
            counting,
            [&] { found = measureProjects(*files, folder.path(), listFolder(*files, folder.path()), "").size(); })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(found, std::size_t{projects});
    constexpr int identitiesDrawnAtOnce = 16;
    constexpr int forTheNumberOfCores = 2;
    EXPECT_LE(calls, projects * (1 + entries) + 4 * (1 + projects) + projects / identitiesDrawnAtOnce + 1 +
                         forTheNumberOfCores);
}

TEST_F(FolderScanOnDisk, ListsAHundredThousandEntriesBesideAndInADataFolder) {
    constexpr int entries = 100000;
    fs::create_directory(folder / "Big_[ProjectData]");
    folder.write("Big.xpj", "x");
    for (const char* at : {"", "Big_[ProjectData]/"}) {
        folder.write("even", "12345");
        folder.write("odd", "12345");
        for (int i = 0; i < entries; ++i) {
            // Hard links are quicker to make than files; a file can have some 65,000.
            fs::create_hard_link(folder / (i % 2 == 0 ? "even" : "odd"), folder / (at + std::to_string(i)));
        }
        fs::remove(folder / "even");
        fs::remove(folder / "odd");
    }
    ASSERT_EQ(scan().size(), 1U);
    EXPECT_EQ(scanner->projects.get().front().fileCount(), entries);
    EXPECT_EQ(scanner->projects.get().front().totalSize(), 1 + 5 * static_cast<std::int64_t>(entries));
}

TEST_F(FolderScanOnDisk, EndsWhileEntriesAppearDisappearAndGrow) {
    folder.write("Song.xpj", "x");
    fs::create_directory(folder / "Song_[ProjectData]");
    std::atomic<bool> stop{false};
    std::atomic<int> turns{0};
    std::thread other([&] {
        for (int i = 0; !stop; ++i) {
            const auto name = "Song_[ProjectData]/" + std::to_string(i % 50);
            folder.write(name, std::string(static_cast<std::size_t>(i % 1000), 'x'));
            folder.write(std::to_string(i % 20) + ".xpj", "x");
            std::error_code gone;
            fs::remove(folder / ("Song_[ProjectData]/" + std::to_string((i + 25) % 50)), gone);
            fs::remove(folder / (std::to_string((i + 10) % 20) + ".xpj"), gone);
            ++turns;
        }
    });
    while (turns == 0) {
        std::this_thread::yield();
    }
    while (turns < 500) {
        const auto& projects = scan();
        EXPECT_GE(projects.size(), 1U);
        EXPECT_LE(projects.size(), 21U);
    }
    stop = true;
    other.join();
}

TEST_F(FolderScanOnDisk, ListsSocketsAndDevicesWithoutOpeningThem) {
    ASSERT_EQ(testing::makeSocket(folder / "Socket.xpj"), std::nullopt);
    Lines expected{"Socket"};
    // Only root may create a device; reading that of /dev/zero would never end.
    if (mknod((folder / "Device.xpj").c_str(), S_IFCHR | 0600, makedev(1, 5)) == 0) {
        expected.insert(expected.begin(), "Device");
    }
    EXPECT_EQ(names(scan()), expected);
}

/// Bytes that are currently allocated.
std::size_t allocated() {
    return mallinfo2().uordblks;
}

TEST_F(FolderScanOnDisk, KeepsOnlyItsLogLinesInMemoryOverManyScans) {
    if (allocated() == 0) {
        GTEST_SKIP() << "a sanitizer's allocator does not tell what it has given out";
    }
    folder.write("Song.xpj", "x");
    folder.write("Song_[ProjectData]/a.wav", "x");
    for (int i = 0; i < 100; ++i) {
        scan();
    }
    const auto linesBefore = scanner->logEntries.get().size();
    const auto before = allocated();
    for (int i = 0; i < 10000; ++i) {
        scan();
    }
    const auto lines = scanner->logEntries.get().size() - linesBefore;
    EXPECT_EQ(lines, 20000U);
    // A line is its record and its text on the heap, with the allocator's overhead and rounding.
    std::size_t expected = lines * sizeof(MPCScanner::LogEntry);
    for (std::size_t i = 0; i < lines; ++i) {
        const auto room = scanner->logEntries.get()[i].message.capacity();
        expected += room > std::string().capacity() ? (room + 1 + sizeof(void*) + 15) / 16 * 16 : 0;
    }
    const auto aBlockOfTheListEach = lines * sizeof(MPCScanner::LogEntry) / 512 * 32;
    EXPECT_LE(allocated() - before, expected + aBlockOfTheListEach + 4096);
}

} // namespace
} // namespace tarvolt
