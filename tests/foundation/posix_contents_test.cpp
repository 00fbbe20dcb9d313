#include "foundation/file_manager.h"
#include "tests/support/call_faults.h"
#include "tests/support/file_contents.h"
#include "tests/support/plain_posix.h"
#include "tests/support/privileges.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysinfo.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace tarvolt {
namespace {

using testing::TemporaryFolder;
using testing::withCallsAnswered;

class PosixContents : public ::testing::Test {
protected:
    std::optional<std::string> contents(const std::filesystem::path& path) const {
        return testing::contentsOf(*disk, path);
    }

    const TemporaryFolder folder;
    const std::shared_ptr<FileManager> disk = makePosixFileManager();
};

TEST_F(PosixContents, AreAllBytesOfAFile) {
    std::string bytes(300'000, '\0');
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        bytes[at] = static_cast<char>(at * 7 % 256);
    }
    EXPECT_EQ(contents(folder.write("file", bytes)), bytes);
    EXPECT_EQ(contents(folder.write("empty", "")), "");
}

TEST_F(PosixContents, AreReadThroughALink) {
    folder.write("file", "text");
    std::filesystem::create_symlink("file", folder / "link");
    EXPECT_EQ(contents(folder / "link"), "text");
}

TEST_F(PosixContents, AreAbsentForAnythingButAFile) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(testing::makeSocket(folder / "socket"), std::nullopt);
    std::filesystem::create_symlink("link", folder / "link");
    std::filesystem::create_symlink("/dev/zero", folder / "device");
    EXPECT_EQ(contents(folder / "pipe"), std::nullopt);
    EXPECT_EQ(contents(folder / "socket"), std::nullopt);
    EXPECT_EQ(contents(folder / "link"), std::nullopt);
    EXPECT_EQ(contents(folder / "device"), std::nullopt);
    EXPECT_EQ(contents(folder.path()), std::nullopt);
    EXPECT_EQ(contents(folder / "gone"), std::nullopt);
    EXPECT_EQ(contents(folder / std::string(300, 'n')), std::nullopt);
}

TEST_F(PosixContents, AreAbsentForANameWithANulByte) {
    folder.write("file", "text");
    EXPECT_EQ(contents(folder / std::string_view("file\0.xpj", 9)), std::nullopt);
}

TEST_F(PosixContents, AreAbsentForAFileWithoutReadPermission) {
    const auto file = folder.write("file", "text");
    ASSERT_EQ(::chmod(file.c_str(), 0), 0);
    testing::withoutPrivileges([&] { EXPECT_EQ(contents(file), std::nullopt); });
}

TEST_F(PosixContents, AreReadWithoutOpeningAnythingButAFile) {
    folder.makeFolder("folder");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    int opened = 0;
    const auto counting = [&](const testing::SystemCall& call) -> std::optional<long> {
        opened += call.text(1).starts_with(folder.path().native()) || call.text(1) == "/dev/zero" ? 1 : 0;
        return std::nullopt;
    };
    if (const auto reason = withCallsAnswered({SYS_openat}, counting, [&] {
            EXPECT_EQ(contents(folder / "pipe"), std::nullopt);
            EXPECT_EQ(contents(folder / "folder"), std::nullopt);
            EXPECT_EQ(contents("/dev/zero"), std::nullopt);
        })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(opened, 0);
}

TEST_F(PosixContents, AreReadToTheEndWhateverSizeWasReported) {
    // The kernel reports a size of 0 for these files and delivers them in pieces.
    const auto status = contents("/proc/self/status");
    ASSERT_TRUE(status.has_value());
    EXPECT_EQ(status->rfind("Name:", 0), 0U);
    EXPECT_EQ(status->back(), '\n');
    EXPECT_NE(status->find("\nThreads:"), std::string::npos);
}

TEST_F(PosixContents, ContinueAfterShortReadsAndSignals) {
    std::string bytes;
    for (int line = 0; line < 2000; ++line) {
        bytes += "line " + std::to_string(line) + "\r\n";
    }
    const auto file = folder.write("file", bytes);
    int calls = 0;
    const auto halting = [&](const testing::SystemCall& call) -> std::optional<long> {
        if (++calls % 3 == 0) {
            return -EINTR;
        }
        return ::syscall(SYS_read, call.arguments[0], call.arguments[1], (call.arguments[2] + 1) / 2);
    };
    if (const auto reason = withCallsAnswered({SYS_read}, halting, [&] { EXPECT_EQ(contents(file), bytes); })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_GT(calls, 10);
}

TEST_F(PosixContents, IncludeWhatIsAppendedDuringTheRead) {
    const auto file = folder.write("file", "begin ");
    int calls = 0;
    const auto growing = [&](const testing::SystemCall& call) -> std::optional<long> {
        const long count = ::syscall(SYS_read, call.arguments[0], call.arguments[1], call.arguments[2]);
        if (++calls == 1) {
            folder.write("file", "begin " + std::string(20'000, 'm') + " end");
        }
        return count;
    };
    if (const auto reason = withCallsAnswered(
            {SYS_read}, growing, [&] { EXPECT_EQ(contents(file), "begin " + std::string(20'000, 'm') + " end"); })) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(PosixContents, AreAbsentWhenTheFileEndsBeforeItsSize) {
    const auto file = folder.write("file", "text");
    const auto ending = [](const testing::SystemCall&) { return std::optional<long>(0); };
    if (const auto reason = withCallsAnswered({SYS_read}, ending, [&] { EXPECT_EQ(contents(file), std::nullopt); })) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(PosixContents, AreAbsentWhenReadingFailsHalfway) {
    const auto file = folder.write("file", std::string(50'000, 'x'));
    int calls = 0;
    const auto breaking = [&](const testing::SystemCall& call) -> std::optional<long> {
        if (++calls == 2) {
            return -EIO;
        }
        return ::syscall(SYS_read, call.arguments[0], call.arguments[1], 1000);
    };
    if (const auto reason = withCallsAnswered({SYS_read}, breaking, [&] { EXPECT_EQ(contents(file), std::nullopt); })) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(PosixContents, AreAbsentWhenTheOpenFileCannotBeExamined) {
    const auto file = folder.write("file", "text");
    const auto blind = [](const testing::SystemCall& call) {
        return testing::isStatusOfOpenFile(call) ? std::optional<long>(-EIO) : std::nullopt;
    };
    if (const auto reason =
            withCallsAnswered({SYS_newfstatat, SYS_fstat}, blind, [&] { EXPECT_EQ(contents(file), std::nullopt); })) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(PosixContents, NeitherBlockOnNorReadAPipeThatReplacesTheFileAtTheLastMoment) {
    const auto file = folder.write("file", "text");
    bool exchanged = false;
    const auto exchanging = [&](const testing::SystemCall& call) -> std::optional<long> {
        if (!exchanged && call.text(1) == file.native()) {
            exchanged = true;
            std::filesystem::remove(file);
            EXPECT_EQ(::mkfifo(file.c_str(), 0600), 0);
        }
        return std::nullopt;
    };
    if (const auto reason =
            withCallsAnswered({SYS_openat}, exchanging, [&] { EXPECT_EQ(contents(file), std::nullopt); })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_TRUE(exchanged);
}

TEST_F(PosixContents, AreNotReadIfTheyAreOrGrowLargerThanAQuarterOfTheMemory) {
    TARVOLT_SKIP_WITH_PLAIN_POSIX("tell how much memory there is");
    constexpr off_t quarter = 1 << 20;
    struct Row {
        off_t size;
        off_t grown; ///< the bytes there are when it is read
        off_t read;  ///< of these; one more than a quarter of the memory shows that it is larger
        bool isAbsent;
    };
    const auto rows = {Row{quarter, quarter, quarter, false},     {quarter, 2 * quarter, quarter + 1, true},
                       {quarter - 5000, quarter, quarter, false}, {quarter - 5000, 2 * quarter, quarter + 1, true},
                       {quarter + 1, quarter + 1, 0, true},       {off_t{64} << 30, 2 * quarter, 0, true},
                       {0x7fffffffffffffff, 2 * quarter, 0, true}};
    for (const Row& row : rows) {
        const int file = ::memfd_create("all of it a hole", MFD_CLOEXEC);
        const auto path = "/proc/self/fd/" + std::to_string(file);
        off_t read = 0;
        const auto answer = [&](const testing::SystemCall& call) {
            if (call.number == SYS_sysinfo) {
                auto* memory =
                    reinterpret_cast<struct sysinfo*>(call.arguments[0]); // NOLINT(performance-no-int-to-ptr)
                *memory = {};
                memory->totalram = 4 * quarter;
                memory->mem_unit = 1;
                return std::optional<long>(0);
            }
            const long count = std::min(static_cast<long>(call.arguments[2]), row.grown - read);
            read += count; // though nothing is
            return std::optional(count);
        };
        ASSERT_EQ(::ftruncate(file, row.size), 0);
        const auto reason = withCallsAnswered({SYS_read, SYS_sysinfo}, answer, [&] {
            const auto found = disk->contents(path);
            EXPECT_EQ(!found.has_value(), row.isAbsent) << row.size << " grown to " << row.grown;
        });
        ::close(file);
        if (reason) {
            GTEST_SKIP() << *reason;
        }
        EXPECT_EQ(read, row.read) << row.size << " grown to " << row.grown;
    }
}

} // namespace
} // namespace tarvolt
