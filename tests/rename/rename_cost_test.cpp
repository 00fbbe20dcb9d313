// What a rename costs, in counts that are the same on every machine.
#include "tests/support/call_faults.h"
#include "tests/support/plain_posix.h"
#include "tests/support/renaming.h"
#include "tests/support/scene.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <malloc.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace tarvolt {
namespace {

using testing::errorOfRename;
using testing::projectIn;

constexpr std::size_t windowSize = std::size_t{256} * 1024;

/// Bytes that are currently allocated.
std::size_t allocated() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

class RenameCost : public ::testing::Test {
protected:
    RenameCost() { scanner->folderURL.set(folder.path()); }

    /// Writes a project of about `size` bytes with a reference in every hundred, and returns its exact size.
    std::size_t makeSong(std::size_t size) const {
        std::string text;
        while (text.size() < size) {
            text += "<File>Song_[ProjectData]/kick.wav</File>" + std::string(60, 'x');
        }
        folder.write("Song.xpj", text);
        folder.write("Song_[ProjectData]/kick.wav", "boom");
        return text.size();
    }

    const testing::TemporaryFolder folder;
    const testing::Scene scene;
    const std::shared_ptr<MPCScanner> scanner = MPCScanner::create(scene.services(makePosixFileManager()));
};

TEST_F(RenameCost, InMemoryIsTheOldFileAndOneWindowOfTheNewOne) {
    if (allocated() == 0) {
        GTEST_SKIP() << "a sanitizer's allocator does not tell what it has given out";
    }
    const std::size_t size = makeSong(8'000'000);
    std::size_t most = 0;
    int writes = 0;
    const auto measuring = [&](const testing::SystemCall&) {
        most = std::max(most, allocated());
        ++writes;
        return std::optional<long>();
    };
    const auto before = allocated();
    std::string error = "did not run";
    if (const auto reason = testing::withCallsAnswered(
            {SYS_write}, measuring, [&] { error = errorOfRename(*scanner, projectIn(folder.path()), "Beat"); })) {
        GTEST_SKIP() << *reason;
    }
    ASSERT_EQ(error, "");
    EXPECT_GE(most - before, size);
    EXPECT_LE(most - before, size + windowSize + std::size_t{64} * 1024);
    EXPECT_LE(writes, static_cast<int>(size / (windowSize - 100)) + 1);
}

TEST_F(RenameCost, InSystemCallsDoesNotGrowWithTheFileExceptForItsWrites) {
    TARVOLT_SKIP_WITH_PLAIN_POSIX("do it with so few calls");
    const auto callsFor = [&](std::size_t size, const std::string& newName) {
        makeSong(size);
        int calls = 0;
        const auto counting = [&](const testing::SystemCall&) {
            ++calls;
            return std::optional<long>();
        };
        const auto reason = testing::withCallsAnswered(
            {SYS_openat, SYS_close, SYS_read, SYS_fstat, SYS_newfstatat, SYS_fcntl, SYS_fsync, SYS_linkat,
             SYS_renameat2, SYS_unlinkat, SYS_getrandom},
            counting, [&] { EXPECT_EQ(errorOfRename(*scanner, projectIn(folder.path()), newName), ""); });
        return reason ? std::nullopt : std::optional(calls);
    };
    const auto small = callsFor(1'000, "Small");
    if (!small) {
        GTEST_SKIP() << "the calls cannot be counted here";
    }
    EXPECT_LE(*small, 34);
    EXPECT_EQ(callsFor(2'000'000, "Large"), small);
}

} // namespace
} // namespace tarvolt
