#include "foundation/file_manager.h"
#include "tests/support/call_faults.h"
#include "tests/support/file_contents.h"
#include "tests/support/state_of.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/syscall.h>

#include <cerrno>
#include <cstdint>
#include <optional>

namespace tarvolt {
namespace {

// A desktop's folder panel may start another program at any time, on another thread.
TEST(PosixDescriptors, AreClosedInStartedPrograms) {
    const testing::TemporaryFolder folder;
    const auto disk = makePosixFileManager();
    int opened = 0;
    int unnamed = 0;
    const auto watch = [&](const testing::SystemCall& call) -> std::optional<long> {
        ++opened;
        if (call.number == SYS_fcntl) {
            EXPECT_NE(call.arguments[1], static_cast<std::uint64_t>(F_DUPFD));
            return std::nullopt;
        }
        EXPECT_NE(call.arguments[2] & O_CLOEXEC, 0U) << call.text(1);
        const bool isUnnamed = (call.arguments[2] & O_TMPFILE) == O_TMPFILE;
        return isUnnamed && ++unnamed == 2 ? std::optional<long>(-EOPNOTSUPP) : std::nullopt;
    };
    const auto reason = testing::withCallsAnswered({SYS_openat, SYS_fcntl}, watch, [&] {
        disk->contentsOfDirectory(folder.path(), LinkPolicy::follow, Sizes::ask, [](const DirectoryEntry&) {});
        EXPECT_TRUE(disk->createFile(folder / "unnamed at first", testing::inOnePart("text")));
        EXPECT_TRUE(disk->contents(folder / "unnamed at first"));
        EXPECT_TRUE(disk->createFile(folder / "hidden at first", testing::inOnePart("text")));
        const auto item = testing::stateOf(*disk, folder / "hidden at first");
        disk->moveItem(folder / "hidden at first", folder / "moved", item.identity);
        disk->removeItem(folder / "moved", item);
    });
    if (reason) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_GE(opened, 6) << "one a call at least";
}

} // namespace
} // namespace tarvolt
