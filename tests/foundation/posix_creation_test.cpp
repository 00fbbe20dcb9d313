#include "foundation/file_manager.h"
#include "tests/support/call_faults.h"
#include "tests/support/file_contents.h"
#include "tests/support/plain_posix.h"
#include "tests/support/privileges.h"
#include "tests/support/small_disk.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvolt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::SystemCall;
using testing::TemporaryFolder;

std::string textOfSize(std::size_t size) {
    std::string text;
    while (text.size() < size) {
        text += "<Sample path=\"Song_[ProjectData]/" + std::to_string(text.size()) + ".wav\"/>\r\n";
    }
    text.resize(size);
    return text;
}

// ---------------------------------------------------------------------------------------------------------------------
// Facts of every file system. The kinds below refuse some calls, as FAT, network and user-space file systems do.

struct FileSystem {
    const char* name;
    bool unnamedFiles;      ///< creates files without a name
    bool namesUnnamedFiles; ///< and can name them
    bool links;
    bool flagOfMove;
    bool synchronises;
};

constexpr FileSystem complete{"Complete", true, true, true, true, true};

const FileSystem fileSystems[] = {
    complete,
    {"WithoutUnnamedFiles", false, true, true, true, true},
    {"WithoutAWayToNameUnnamedFiles", true, false, true, true, true},
    {"WithoutLinks", false, false, false, true, true},
    {"WithoutAnyOfThese", false, false, false, false, false},
};

void PrintTo(const FileSystem& fileSystem, std::ostream* out) {
    *out << fileSystem.name;
}

bool isUnnamedOpening(const SystemCall& call) {
    return call.number == SYS_openat && (call.arguments[2] & O_TMPFILE) == O_TMPFILE;
}

bool isNamingOfUnnamed(const SystemCall& call) {
    return call.number == SYS_linkat && call.text(1).starts_with("/proc/");
}

std::string words(const SystemCall& call) {
    switch (call.number) {
    case SYS_openat:
        return isUnnamedOpening(call)                   ? "make unnamed"
               : (call.arguments[2] & O_CREAT) != 0     ? "make hidden"
               : (call.arguments[2] & O_DIRECTORY) != 0 ? "open folder"
                                                        : "open";
    case SYS_write:
        return "write";
    case SYS_fsync: {
        struct stat status {};
        ::fstat(static_cast<int>(call.arguments[0]), &status);
        return S_ISDIR(status.st_mode) ? "sync folder" : "sync file";
    }
    case SYS_linkat:
        return isNamingOfUnnamed(call) ? "name" : "link";
    case SYS_unlinkat:
        return "unlink " + (call.text(1).front() == '.' ? "hidden" : call.text(1));
    case SYS_renameat2:
        return call.arguments[4] == 0 ? "move" : "move without replacing";
    case SYS_renameat:
        return "move";
    default:
        return "other";
    }
}

/// The calls that create a file, in order, and a file system's answers to them.
class CreationCalls {
public:
    explicit CreationCalls(const FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// The next call with this description gets `result` instead.
    void answerOnce(const std::string& call, long result) { once_.emplace_back(call, result); }
    /// Calls with this description are made if the file system supports them, and then answered with an error.
    void loseTheAnswerOf(const std::string& call, int error) { lost_[call] = error; }
    /// Runs before the first call with this description.
    void before(const std::string& call, std::function<void()> action) {
        before_.emplace_back(call, std::move(action));
    }

    const std::vector<std::string>& trace() const { return trace_; }

    std::optional<std::string> watch(const std::function<void()>& body) {
        return testing::withCallsAnswered(
            {SYS_openat, SYS_write, SYS_fsync, SYS_linkat, SYS_unlinkat, SYS_renameat2, SYS_renameat},
            [this](const SystemCall& call) { return answer(call); }, body);
    }

private:
    std::optional<long> answer(const SystemCall& call) {
        const auto what = words(call);
        trace_.push_back(what);
        for (auto at = before_.begin(); at != before_.end(); ++at) {
            if (at->first == what) {
                const auto action = at->second;
                before_.erase(at);
                action();
                break;
            }
        }
        for (auto at = once_.begin(); at != once_.end(); ++at) {
            if (at->first == what) {
                const auto result = at->second;
                once_.erase(at);
                return result;
            }
        }
        const auto refused = refusal(call, what);
        const auto lost = lost_.find(what);
        if (refused || lost == lost_.end()) {
            return refused;
        }
        ::syscall(call.number, call.arguments[0], call.arguments[1], call.arguments[2], call.arguments[3],
                  call.arguments[4]);
        return -lost->second;
    }

    std::optional<long> refusal(const SystemCall& call, const std::string& what) const {
        if (isUnnamedOpening(call) && !fileSystem_.unnamedFiles) {
            return -EOPNOTSUPP;
        }
        if (isNamingOfUnnamed(call) && !fileSystem_.namesUnnamedFiles) {
            return -ENOENT;
        }
        if (what == "link" && !fileSystem_.links) {
            return -EPERM;
        }
        if (what == "move without replacing" && !fileSystem_.flagOfMove) {
            return -EINVAL;
        }
        if (call.number == SYS_fsync && !fileSystem_.synchronises) {
            return -EINVAL;
        }
        return std::nullopt;
    }

    const FileSystem& fileSystem_;
    std::vector<std::string> trace_;
    std::vector<std::pair<std::string, long>> once_;
    std::map<std::string, int> lost_;
    std::vector<std::pair<std::string, std::function<void()>>> before_;
};

class PosixCreation : public ::testing::TestWithParam<FileSystem> {
protected:
    /// Creates the file on a file system of the given kind; skips the test where there is none.
    std::optional<FileState> create(const std::filesystem::path& path, const std::string& contents) {
        std::optional<FileState> created;
        if (const auto reason = calls.watch([&] { created = disk->createFile(path, testing::inOnePart(contents)); })) {
            skipped = *reason;
        }
        return created;
    }

    const TemporaryFolder folder;
    const std::shared_ptr<FileManager> disk = makePosixFileManager();
    CreationCalls calls{GetParam()};
    std::string skipped;
};

#define SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED()                                                                          \
    if (!skipped.empty())                                                                                              \
    GTEST_SKIP() << skipped

INSTANTIATE_TEST_SUITE_P(On, PosixCreation, ::testing::ValuesIn(fileSystems),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(PosixCreation, CreatesTheWholeFileAndNothingElse) {
    const auto text = textOfSize(300'000);
    const auto created = create(folder / "New.xpj", text);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    ASSERT_TRUE(created.has_value());
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=" + text));
    struct stat status {};
    ASSERT_EQ(::lstat((folder / "New.xpj").c_str(), &status), 0);
    EXPECT_EQ(created->identity, (FileIdentity{status.st_dev, status.st_ino}));
    EXPECT_EQ(status.st_nlink, 1U);
}

TEST_P(PosixCreation, CreatesAnEmptyFile) {
    EXPECT_TRUE(create(folder / "New.xpj", "").has_value() || !skipped.empty());
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj="));
}

TEST_P(PosixCreation, AppliesTheUmaskToTheMode) {
    for (const mode_t masked : {0U, 027U}) {
        const auto file = folder / (std::to_string(masked) + ".xpj");
        const auto before = ::umask(masked);
        create(file, "text");
        ::umask(before);
        SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
        struct stat status {};
        ASSERT_EQ(::lstat(file.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode, S_IFREG | (0666U & ~masked));
    }
}

TEST_P(PosixCreation, ReplacesNothing) {
    folder.write("file", "old");
    folder.makeFolder("empty folder");
    std::filesystem::create_symlink("nowhere", folder / "dangling link");
    const auto before = folder.tree();
    for (const char* name : {"file", "empty folder", "dangling link"}) {
        EXPECT_EQ(create(folder / name, "new"), std::nullopt) << name;
        SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    }
    EXPECT_EQ(folder.tree(), before);
}

TEST_P(PosixCreation, ContinuesAfterShortWritesAndSignals) {
    for (const char* call : {"open folder", "make unnamed", "make hidden", "write", "sync file", "sync folder"}) {
        calls.answerOnce(call, -EINTR);
    }
    // The kernel writes what fits below the limit and the rest once the limit is lifted.
    const auto text = textOfSize(100'000);
    int writes = 0;
    std::optional<FileState> created;
    const auto reason = testing::withCallsAnswered(
        {SYS_write},
        [&](const SystemCall& call) -> std::optional<long> {
            return ++writes > 20 ? std::nullopt
                                 : std::optional<long>(::syscall(SYS_write, call.arguments[0], call.arguments[1], 999));
        },
        [&] { created = disk->createFile(folder / "Short.xpj", testing::inOnePart(text)); });
    ASSERT_TRUE(reason || created);
    EXPECT_TRUE(create(folder / "New.xpj", text).has_value() || !skipped.empty());
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=" + text, "Short.xpj=" + text));
}

TEST_P(PosixCreation, FailsAndLeavesNothingWhenTheNameIsTooLong) {
    EXPECT_EQ(create(folder / std::string(256, 'n'), "text"), std::nullopt);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST_P(PosixCreation, FailsAndLeavesNothingWhenAWriteFails) {
    calls.answerOnce("write", -ENOSPC);
    EXPECT_EQ(create(folder / "New.xpj", "text"), std::nullopt);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST_P(PosixCreation, FailsAndLeavesNothingWhenTheFileCannotBeFlushed) {
    calls.answerOnce("sync file", -EIO);
    EXPECT_EQ(create(folder / "New.xpj", "text"), std::nullopt);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST_P(PosixCreation, FailsAndRemovesTheFileWhenItsNameCannotBeFlushed) {
    calls.answerOnce("sync folder", -EIO);
    EXPECT_EQ(create(folder / "New.xpj", "text"), std::nullopt);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST_P(PosixCreation, FailsEvenIfTheFileCannotBeRemovedAgain) {
    calls.answerOnce("sync folder", -EIO);
    calls.answerOnce("unlink New.xpj", -EIO);
    EXPECT_EQ(create(folder / "New.xpj", "text"), std::nullopt);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=text"));
}

TEST_P(PosixCreation, KeepsAForeignFileWhenItFailsAfterTheNaming) {
    calls.before("sync folder", [&] {
        std::filesystem::remove(folder / "New.xpj");
        folder.write("New.xpj", "of another program");
    });
    calls.answerOnce("sync folder", -EIO);
    EXPECT_EQ(create(folder / "New.xpj", "text"), std::nullopt);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=of another program"));
}

TEST_P(PosixCreation, SucceedsOnAFileSystemThatCannotFlush) {
    for (const int error : {EINVAL, ENOTSUP, ENOSYS}) {
        calls.answerOnce("sync file", -error);
        calls.answerOnce("sync folder", -error);
        const auto path = folder / std::to_string(error);
        EXPECT_TRUE(create(path, "text").has_value() || !skipped.empty());
        SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
        EXPECT_EQ(testing::readFile(path), "text");
    }
}

TEST_P(PosixCreation, KeepsAFileThatAppearsJustBeforeTheNaming) {
    // If the move does not support the flag, a file can be noticed only until the check.
    for (const char* call : {"name", "link", "move without replacing"}) {
        calls.before(call, [&] { folder.write("New.xpj", "of another program"); });
    }
    EXPECT_EQ(create(folder / "New.xpj", "text"), std::nullopt);
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=of another program"));
}

TEST_P(PosixCreation, SucceedsWhenOnlyTheReplyToTheNamingIsLost) {
    for (const char* call : {"name", "link", "move without replacing", "move"}) {
        calls.loseTheAnswerOf(call, EIO);
    }
    EXPECT_TRUE(create(folder / "New.xpj", "text").has_value() || !skipped.empty());
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=text"));
}

TEST_P(PosixCreation, StaysInTheFolderItOpenedEvenIfThePathChanges) {
    folder.makeFolder("projects");
    folder.makeFolder("elsewhere");
    for (const char* call : {"make unnamed", "make hidden"}) {
        calls.before(call, [&] {
            std::error_code ignored;
            std::filesystem::rename(folder / "projects", folder / "moved", ignored);
            std::filesystem::create_directory_symlink("elsewhere", folder / "projects", ignored);
        });
    }
    EXPECT_TRUE(create(folder / "projects/New.xpj", "text").has_value() || !skipped.empty());
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
    EXPECT_THAT(folder.tree(), ElementsAre("elsewhere/", "moved/", "moved/New.xpj=text", "projects->elsewhere"));
}

// ---------------------------------------------------------------------------------------------------------------------
// The order of the calls, and the fallbacks.

class CallOrder : public PosixCreation {};

INSTANTIATE_TEST_SUITE_P(On, CallOrder, ::testing::ValuesIn(fileSystems),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(CallOrder, IsWriteThenFlushThenNameThenFlushTheFolder) {
    create(folder / "New.xpj", "text");
    SKIP_WHERE_CALLS_CANNOT_BE_ANSWERED();
#ifdef TARVOLT_PLAIN_POSIX
    // As on a file system without unnamed files and the flag, except that these are not even asked for.
    const std::vector<std::string> linked{"open folder", "make hidden",   "write",      "sync file",
                                          "link",        "unlink hidden", "sync folder"};
    const std::vector<std::string> moved{"open folder", "make hidden", "write",      "sync file",
                                         "link",        "move",        "sync folder"};
    EXPECT_EQ(calls.trace(), GetParam().links ? linked : moved);
#else
    const std::map<std::string, std::vector<std::string>> expected{
        {"Complete", {"open folder", "make unnamed", "write", "sync file", "name", "sync folder"}},
        {"WithoutUnnamedFiles",
         {"open folder", "make unnamed", "make hidden", "write", "sync file", "link", "unlink hidden", "sync folder"}},
        {"WithoutAWayToNameUnnamedFiles",
         {"open folder", "make unnamed", "write", "sync file", "name", "make hidden", "write", "sync file", "link",
          "unlink hidden", "sync folder"}},
        {"WithoutLinks",
         {"open folder", "make unnamed", "make hidden", "write", "sync file", "link", "move without replacing",
          "sync folder"}},
        {"WithoutAnyOfThese",
         {"open folder", "make unnamed", "make hidden", "write", "sync file", "link", "move without replacing", "move",
          "sync folder"}},
    };
    EXPECT_EQ(calls.trace(), expected.at(GetParam().name));
#endif
}

TEST(PosixCreationByName, UsesAHiddenNameOfFixedLengthThatIsNotAProjectFile) {
    const TemporaryFolder folder;
    std::vector<std::string> names;
    const auto noting = [&](const SystemCall& call) -> std::optional<long> {
        if (call.number == SYS_openat && (call.arguments[2] & O_CREAT) != 0) {
            EXPECT_NE(call.arguments[2] & O_EXCL, 0U);
            EXPECT_NE(call.arguments[2] & O_NOFOLLOW, 0U);
            names.push_back(call.text(1));
        }
        return isUnnamedOpening(call) ? std::optional<long>(-EOPNOTSUPP) : std::nullopt;
    };
    const auto disk = makePosixFileManager();
    if (const auto reason = testing::withCallsAnswered({SYS_openat}, noting, [&] {
            EXPECT_TRUE(disk->createFile(folder / "a.xpj", testing::inOnePart("text")));
            EXPECT_TRUE(disk->createFile(folder / (std::string(251, 'n') + ".xpj"), testing::inOnePart("text")));
        })) {
        GTEST_SKIP() << *reason;
    }
    ASSERT_EQ(names.size(), 2U);
    EXPECT_NE(names[0], names[1]);
    EXPECT_EQ(names[0].size(), names[1].size());
    EXPECT_LT(names[0].size(), 64U);
    EXPECT_EQ(names[0].front(), '.');
    EXPECT_FALSE(names[0].ends_with(".xpj"));
}

TEST(PosixCreationByName, FailsWhenOnlyCloseReportsLostBytes) {
    const TemporaryFolder folder;
    const auto losing = [&](const SystemCall& call) -> std::optional<long> {
        if (call.number == SYS_fsync) {
            return -EINVAL;
        }
        if (call.number == SYS_openat) {
            return isUnnamedOpening(call) ? std::optional<long>(-EOPNOTSUPP) : std::nullopt;
        }
        struct stat status {};
        ::fstat(static_cast<int>(call.arguments[0]), &status);
        if (!S_ISREG(status.st_mode)) {
            return std::nullopt;
        }
        ::syscall(SYS_close, call.arguments[0]);
        return -EDQUOT;
    };
    const auto disk = makePosixFileManager();
    if (const auto reason = testing::withCallsAnswered({SYS_openat, SYS_fsync, SYS_close}, losing, [&] {
            EXPECT_FALSE(disk->createFile(folder / "New.xpj", testing::inOnePart("text")));
        })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST(PosixCreationByName, IdentifiesTheFileOnAFileSystemThatNumbersNames) {
    const TemporaryFolder folder;
    const auto numberingNames = [&](const SystemCall& call) -> std::optional<long> {
        if (call.number == SYS_openat) {
            return isUnnamedOpening(call) ? std::optional<long>(-EOPNOTSUPP) : std::nullopt;
        }
        const long result =
            ::syscall(SYS_newfstatat, call.arguments[0], call.arguments[1], call.arguments[2], call.arguments[3]);
        if (result == 0 && call.text(1) == "New.xpj") {
            reinterpret_cast<struct stat*>(call.arguments[2])->st_ino += 1000; // NOLINT(performance-no-int-to-ptr)
        }
        return result == 0 ? result : -errno;
    };
    const auto disk = makePosixFileManager();
    if (const auto reason = testing::withCallsAnswered({SYS_openat, SYS_newfstatat}, numberingNames, [&] {
            const auto created = disk->createFile(folder / "New.xpj", testing::inOnePart("text"));
            ASSERT_TRUE(created);
            disk->removeItem(folder / "New.xpj", *created);
        })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST(PosixCreationByName, DoesNotIdentifyAFileThatDiffersInAnythingElse) {
    using Change = void (*)(struct stat&);
    const Change changes[] = {
        [](struct stat& named) { ++named.st_dev; },
        [](struct stat& named) { ++named.st_size; },
        [](struct stat& named) { ++named.st_mtim.tv_sec; },
        [](struct stat& named) { ++named.st_mtim.tv_nsec; },
    };
    const TemporaryFolder folder;
    const auto disk = makePosixFileManager();
    for (const Change change : changes) {
        const auto path = folder / ("New " + std::to_string(folder.tree().size()) + ".xpj");
        const auto another = [&](const SystemCall& call) -> std::optional<long> {
            const long result =
                ::syscall(SYS_newfstatat, call.arguments[0], call.arguments[1], call.arguments[2], call.arguments[3]);
            if (result == 0 && !call.text(1).empty()) {
                auto& named = *reinterpret_cast<struct stat*>(call.arguments[2]); // NOLINT(performance-no-int-to-ptr)
                ++named.st_ino;
                change(named);
            }
            return result == 0 ? result : -errno;
        };
        std::optional<FileState> created;
        if (const auto reason = testing::withCallsAnswered(
                {SYS_newfstatat}, another, [&] { created = disk->createFile(path, testing::inOnePart("text")); })) {
            GTEST_SKIP() << *reason;
        }
        ASSERT_TRUE(created);
        EXPECT_EQ(created->identity, disk->state(path)->identity) << path;
    }
}

TEST(PosixCreationByName, IdentifiesTheFileEvenIfItsNameCannotBeExamined) {
    const TemporaryFolder folder;
    const auto disk = makePosixFileManager();
    const auto blind = [](const SystemCall& call) {
        return call.text(1).empty() ? std::nullopt : std::optional<long>(-EIO);
    };
    std::optional<FileState> created;
    if (const auto reason = testing::withCallsAnswered({SYS_newfstatat}, blind, [&] {
            created = disk->createFile(folder / "New.xpj", testing::inOnePart("text"));
        })) {
        GTEST_SKIP() << *reason;
    }
    ASSERT_TRUE(created);
    EXPECT_EQ(created->identity, disk->state(folder / "New.xpj")->identity);
}

TEST(PosixCreationByName, FailsAndLeavesNothingWhenTheWrittenFileCannotBeDuplicatedOrExamined) {
    const TemporaryFolder folder;
    const auto disk = makePosixFileManager();
    const auto failing = [](const SystemCall& call) {
        const bool isOfTheFile = call.number == SYS_fcntl || testing::isStatusOfOpenFile(call);
        return isOfTheFile ? std::optional<long>(-EMFILE) : std::nullopt;
    };
    for (const auto& calls : {std::vector{SYS_fcntl}, std::vector{SYS_newfstatat, SYS_fstat}}) {
        if (const auto reason = testing::withCallsAnswered(calls, failing, [&] {
                EXPECT_FALSE(disk->createFile(folder / "New.xpj", testing::inOnePart("text")));
            })) {
            GTEST_SKIP() << *reason;
        }
        EXPECT_THAT(folder.tree(), IsEmpty()) << calls.front();
    }
}

TEST(PosixCreationByName, LosesNothingWhenASignalInterruptsTheClose) {
    const TemporaryFolder folder;
    const auto disk = makePosixFileManager();
    const auto interrupted = [](const SystemCall& call) -> std::optional<long> {
        ::syscall(SYS_close, call.arguments[0]);
        return -EINTR;
    };
    if (const auto reason = testing::withCallsAnswered({SYS_close}, interrupted, [&] {
            EXPECT_TRUE(disk->createFile(folder / "New.xpj", testing::inOnePart("text")));
        })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=text"));
}

TEST(PosixCreationByName, TriesOnceMoreToRemoveTheHiddenName) {
    const TemporaryFolder folder;
    int removals = 0;
    const auto failing = [&](const SystemCall& call) -> std::optional<long> {
        if (call.number == SYS_openat) {
            return isUnnamedOpening(call) ? std::optional<long>(-EOPNOTSUPP) : std::nullopt;
        }
        return ++removals == 1 ? std::optional<long>(-EIO) : std::nullopt;
    };
    const auto disk = makePosixFileManager();
    if (const auto reason = testing::withCallsAnswered({SYS_openat, SYS_unlinkat}, failing, [&] {
            EXPECT_TRUE(disk->createFile(folder / "New.xpj", testing::inOnePart("text")));
        })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=text"));
}

// ---------------------------------------------------------------------------------------------------------------------
// Tests that need no answers in the kernel's place.

class PosixCreationFails : public ::testing::Test {
protected:
    const TemporaryFolder folder;
    const std::shared_ptr<FileManager> disk = makePosixFileManager();
};

TEST_F(PosixCreationFails, InAMissingFolderAndInAFile) {
    folder.write("file", "text");
    EXPECT_FALSE(disk->createFile(folder / "gone/New.xpj", testing::inOnePart("text")));
    EXPECT_FALSE(disk->createFile(folder / "file/New.xpj", testing::inOnePart("text")));
    EXPECT_THAT(folder.tree(), ElementsAre("file=text"));
}

TEST_F(PosixCreationFails, ForANameWithANulByte) {
    EXPECT_FALSE(disk->createFile(folder / std::string_view("New\0.xpj", 8), testing::inOnePart("text")));
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST_F(PosixCreationFails, WithoutAName) {
    EXPECT_FALSE(disk->createFile(folder / "", testing::inOnePart("text")));
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST_F(PosixCreationFails, NotForANameInTheCurrentFolder) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const auto created = disk->createFile("New.xpj", testing::inOnePart("text"));
    std::filesystem::current_path(before);
    EXPECT_TRUE(created);
    EXPECT_THAT(folder.tree(), ElementsAre("New.xpj=text"));
}

TEST_F(PosixCreationFails, InAFolderWithoutWritePermission) {
    ASSERT_EQ(::chmod(folder.path().c_str(), 0500), 0);
    testing::withoutPrivileges([&] { EXPECT_FALSE(disk->createFile(folder / "New.xpj", testing::inOnePart("text"))); });
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST_F(PosixCreationFails, InAFolderThatCanBeWrittenButNotListedByPosixAloneOnly) {
    ASSERT_EQ(::chmod(folder.path().c_str(), 0300), 0);
    testing::withoutPrivileges([&] {
        const auto created = disk->createFile(folder / "New.xpj", testing::inOnePart("text"));
        EXPECT_EQ(created.has_value(), !testing::isPlainPosix);
    });
    ASSERT_EQ(::chmod(folder.path().c_str(), 0700), 0);
    using Tree = std::vector<std::string>;
    EXPECT_EQ(folder.tree(), testing::isPlainPosix ? Tree{} : Tree{"New.xpj=text"});
}

TEST_F(PosixCreationFails, WhenTheDiskFillsUpAndFreesTheSpace) {
    if (const auto reason = testing::withSmallDisk(1'000'000, [&](const std::filesystem::path& smallDisk) {
            EXPECT_FALSE(disk->createFile(smallDisk / "New.xpj", testing::inOnePart(textOfSize(2'000'000))));
            EXPECT_TRUE(std::filesystem::is_empty(smallDisk));
            EXPECT_TRUE(disk->createFile(smallDisk / "New.xpj", testing::inOnePart(textOfSize(900'000))));
        })) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(PosixCreationFails, WhenItsContentsCannotBeProduced) {
    const auto breaking = [](const FileManager::PartWriter& write) {
        write(textOfSize(400'000));
        throw std::runtime_error("no more");
    };
    EXPECT_THROW(disk->createFile(folder / "New.xpj", breaking), std::runtime_error);
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST_F(PosixCreationFails, WhenTheFileSizeIsLimited) {
    bool created = true;
    testing::withLimitedFileSize(100'000, [&] {
        created = disk->createFile(folder / "New.xpj", testing::inOnePart(textOfSize(200'000))).has_value();
    });
    EXPECT_FALSE(created);
    EXPECT_THAT(folder.tree(), IsEmpty());
}

TEST(PosixCreationOfParts, CollectsSmallOnesAndCopiesNoLargeOne) {
    const TemporaryFolder folder;
    const auto disk = makePosixFileManager();
    const std::string large(1'000'000, 'l');
    const auto parts = [&](const FileManager::PartWriter& write) {
        for (int small = 0; small < 100'000; ++small) {
            write("small");
        }
        write(large);
    };
    int writes = 0;
    bool isWrittenInPlace = false;
    std::optional<FileState> created;
    const auto counting = [&](const SystemCall& call) {
        ++writes;
        isWrittenInPlace |= call.arguments[1] == reinterpret_cast<std::uintptr_t>(large.data());
        return std::optional<long>();
    };
    if (const auto reason = testing::withCallsAnswered(
            {SYS_write}, counting, [&] { created = disk->createFile(folder / "New.xpj", parts); })) {
        GTEST_SKIP() << *reason;
    }
    ASSERT_TRUE(created);
    EXPECT_EQ(std::filesystem::file_size(folder / "New.xpj"), 1'500'000U);
    EXPECT_LE(writes, 3);
    EXPECT_TRUE(isWrittenInPlace);
}

} // namespace
} // namespace tarvolt
