#include "foundation/file_manager.h"
#include "tests/support/call_faults.h"
#include "tests/support/privileges.h"
#include "tests/support/small_disk.h"
#include "tests/support/state_of.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace tarvolt {
namespace {

using ::testing::ElementsAre;
using testing::SystemCall;
using testing::TemporaryFolder;

std::optional<long> withoutTheFlag(const SystemCall& call) {
    return call.arguments[4] != 0 ? std::optional<long>(-EINVAL) : std::nullopt;
}

class PosixMoving : public ::testing::TestWithParam<bool> {
protected:
    /// The error of the move, or 0, on a file system with or without support for RENAME_NOREPLACE.
    int errorOfMove(const std::filesystem::path& from, const std::filesystem::path& to, const FileIdentity& onlyIf) {
        int error = 0;
        const auto move = [&] {
            try {
                disk->moveItem(from, to, onlyIf);
            } catch (const FileError& failure) {
                error = failure.code().value();
            }
        };
        if (knowsTheFlag) {
            move();
        } else if (const auto reason = testing::withCallsAnswered({SYS_renameat2}, withoutTheFlag, move)) {
            skipped = *reason;
        }
        return error;
    }

    int errorOfMove(const std::filesystem::path& from, const std::filesystem::path& to) {
        return errorOfMove(from, to, testing::identityOf(*disk, from));
    }

    const bool knowsTheFlag = GetParam();
    const TemporaryFolder folder;
    const std::shared_ptr<FileManager> disk = makePosixFileManager();
    std::string skipped;
};

#define SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED()                                                                          \
    if (!skipped.empty())                                                                                              \
    GTEST_SKIP() << skipped

INSTANTIATE_TEST_SUITE_P(WhereTheFlagNotToReplaceIs, PosixMoving, ::testing::Values(true, false),
                         [](const auto& test) { return test.param ? "Known" : "Unknown"; });

TEST_P(PosixMoving, MovesAFolderWithItsContents) {
    folder.write("Song_[ProjectData]/deep/kick.wav", "boom");
    EXPECT_EQ(errorOfMove(folder / "Song_[ProjectData]", folder / "Beat_[ProjectData]"), 0);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), ElementsAre("Beat_[ProjectData]/", "Beat_[ProjectData]/deep/",
                                           "Beat_[ProjectData]/deep/kick.wav=boom"));
}

TEST_P(PosixMoving, ReplacesNothing) {
    folder.write("from/a", "1");
    folder.makeFolder("empty folder");
    folder.write("full folder/b", "2");
    folder.write("file", "3");
    std::filesystem::create_symlink("nowhere", folder / "dangling link");
    const auto before = folder.tree();
    for (const char* name : {"empty folder", "full folder", "file", "dangling link"}) {
        EXPECT_EQ(errorOfMove(folder / "from", folder / name), EEXIST) << name;
        SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    }
    EXPECT_EQ(folder.tree(), before);
}

TEST_P(PosixMoving, FailsForAnItemThatHadBothNamesBefore) {
    folder.write("data/a", "1");
    folder.write("file", "2");
    std::filesystem::create_hard_link(folder / "file", folder / "same file");
    const auto before = folder.tree();
    EXPECT_EQ(errorOfMove(folder / "data", folder / "data"), EEXIST);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_EQ(errorOfMove(folder / "file", folder / "same file"), EEXIST);
    EXPECT_EQ(folder.tree(), before);
}

TEST_P(PosixMoving, ReportsWhyItFailedAndLeavesTheItemWhereItWas) {
    folder.write("from/a", "1");
    const auto before = folder.tree();
    EXPECT_EQ(errorOfMove(folder / "gone", folder / "to"), ENOENT);
    EXPECT_EQ(errorOfMove(folder / "from", folder / "gone/to"), ENOENT);
    EXPECT_EQ(errorOfMove(folder / "from", folder / std::string(256, 'n')), ENAMETOOLONG);
    EXPECT_EQ(errorOfMove(folder / "from", folder / "from/inside"), EINVAL);
    EXPECT_EQ(errorOfMove(folder / "from", folder / std::string_view("to\0x", 4)), EINVAL);
    EXPECT_EQ(errorOfMove(folder / std::string_view("from\0x", 6), folder / "to"), EINVAL);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_EQ(folder.tree(), before);
}

TEST_P(PosixMoving, MovesALinkAndNotItsTarget) {
    folder.write("there/a", "1");
    std::filesystem::create_directory_symlink("there", folder / "link");
    EXPECT_EQ(errorOfMove(folder / "link", folder / "moved"), 0);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), ElementsAre("moved->there", "there/", "there/a=1"));
}

TEST_P(PosixMoving, FailsWithoutWritePermissionForTheFolder) {
    folder.write("p/from/a", "1");
    ASSERT_EQ(::chmod((folder / "p").c_str(), 0500), 0);
    int error = 0;
    testing::withoutPrivileges([&] { error = errorOfMove(folder / "p/from", folder / "p/to"); });
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_EQ(error, EACCES);
}

TEST_P(PosixMoving, DoesNotCopyToAnotherDevice) {
    folder.write("from/a", "1");
    if (const auto reason = testing::withSmallDisk(100'000, [&](const std::filesystem::path& other) {
            EXPECT_EQ(errorOfMove(folder / "from", other / "to"), EXDEV);
            EXPECT_TRUE(std::filesystem::is_empty(other));
        })) {
        GTEST_SKIP() << *reason;
    }
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), ElementsAre("from/", "from/a=1"));
}

class PosixMovingCalls : public ::testing::Test {
protected:
    int errorOfMove() const {
        try {
            disk->moveItem(folder / "from", folder / "to", testing::identityOf(*disk, folder / "from"));
        } catch (const FileError& failure) {
            return failure.code().value();
        }
        return 0;
    }

    const TemporaryFolder folder;
    const std::shared_ptr<FileManager> disk = makePosixFileManager();
};

TEST_F(PosixMovingCalls, FlushEachFolderOnceAfterTheMoveAndIgnoreFailuresOfThat) {
    folder.write("a/from", "1");
    folder.makeFolder("b");
    const auto item = testing::identityOf(*disk, folder / "a/from");
    std::vector<std::string> trace;
    const auto noting = [&](const SystemCall& call) -> std::optional<long> {
        if (call.number != SYS_fsync) {
            trace.emplace_back("move");
            return std::nullopt;
        }
        trace.push_back(std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(call.arguments[0])).filename());
        return -EIO;
    };
    if (const auto reason = testing::withCallsAnswered({SYS_renameat2, SYS_renameat, SYS_fsync}, noting, [&] {
            disk->moveItem(folder / "a/from", folder / "b/to", item);
            disk->moveItem(folder / "b/to", folder / "b/there", item);
        })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_THAT(trace, ElementsAre("move", "b", "a", "move", "b"));
}

TEST_F(PosixMovingCalls, SucceedWhenOnlyTheirReplyIsLost) {
    folder.write("from", "1");
    const auto losingTheAnswer = [](const SystemCall& call) -> std::optional<long> {
        ::syscall(call.number, call.arguments[0], call.arguments[1], call.arguments[2], call.arguments[3],
                  call.arguments[4]);
        return -EIO;
    };
    const auto item = testing::identityOf(*disk, folder / "from");
    if (const auto reason = testing::withCallsAnswered({SYS_renameat2, SYS_renameat}, losingTheAnswer, [&] {
            EXPECT_NO_THROW(disk->moveItem(folder / "from", folder / "to", item));
        })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_THAT(folder.tree(), ElementsAre("to=1"));
}

TEST_F(PosixMovingCalls, FallBackOnEachErrorThatMeansTheFlagIsUnknown) {
    for (const int error : {EINVAL, ENOSYS, EOPNOTSUPP}) {
        const auto from = folder.write("from", "1");
        const auto to = folder / std::to_string(error);
        const auto item = testing::identityOf(*disk, from);
        if (const auto reason = testing::withCallsAnswered({SYS_renameat2}, testing::refuseWith(error),
                                                           [&] { EXPECT_NO_THROW(disk->moveItem(from, to, item)); })) {
            GTEST_SKIP() << *reason;
        }
        EXPECT_EQ(testing::readFile(to), "1") << error;
    }
}

TEST_F(PosixMovingCalls, DoNotFallBackWhenTheDestinationCannotBeExamined) {
    folder.write("from", "1");
    folder.write("to", "2");
    int error = 0;
    const auto answer = [](const SystemCall& call) -> std::optional<long> {
        if (call.number == SYS_renameat2) {
            return withoutTheFlag(call);
        }
        return call.text(1) == "to" ? std::optional<long>(-EIO) : std::nullopt;
    };
    if (const auto reason =
            testing::withCallsAnswered({SYS_renameat2, SYS_newfstatat}, answer, [&] { error = errorOfMove(); })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(error, EIO);
    EXPECT_THAT(folder.tree(), ElementsAre("from=1", "to=2"));
}

TEST_F(PosixMovingCalls, DoNotFallBackWhenTheMoveFailsForAnotherReason) {
    folder.write("from", "1");
    int error = 0;
    if (const auto reason = testing::withCallsAnswered({SYS_renameat2, SYS_renameat}, testing::refuseWith(EIO),
                                                       [&] { error = errorOfMove(); })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(error, EIO);
    EXPECT_THAT(folder.tree(), ElementsAre("from=1"));
}

} // namespace
} // namespace tarvolt
