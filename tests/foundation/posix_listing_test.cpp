#include "foundation/file_manager.h"
#include "tests/support/call_faults.h"
#include "tests/support/plain_posix.h"
#include "tests/support/privileges.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <iterator>
#include <map>

namespace tarvolt {
namespace {

using ::testing::Key;
using testing::refuseWith;
using testing::TemporaryFolder;
using ::testing::UnorderedElementsAre;
using testing::withCallsAnswered;

struct Found {
    std::optional<bool> isDirectory;
    std::optional<std::int64_t> fileSize;

    friend bool operator==(const Found&, const Found&) = default;
};

class PosixListing : public ::testing::Test {
protected:
    std::map<std::string, Found> list(const std::filesystem::path& path, LinkPolicy links = LinkPolicy::follow) const {
        std::map<std::string, Found> found;
        disk->contentsOfDirectory(path, links, Sizes::ask, [&](const DirectoryEntry& entry) {
            found[std::string(entry.name)] = {entry.isDirectory, entry.fileSize};
        });
        return found;
    }

    int errorOfListing(const std::filesystem::path& path, LinkPolicy links = LinkPolicy::follow) const {
        try {
            list(path, links);
        } catch (const FileError& error) {
            return error.code().value();
        }
        return 0;
    }

    const TemporaryFolder folder;
    const std::shared_ptr<FileManager> disk = makePosixFileManager();
};

TEST_F(PosixListing, GivesTheSizesOfFilesButNotOfFolders) {
    folder.write("Song.xpj", std::string(500, 'x'));
    folder.write("Song_[ProjectData]/deeper.wav", "1");
    const auto found = list(folder.path());
    EXPECT_EQ(found.at("Song.xpj"), (Found{false, 500}));
    EXPECT_EQ(found.at("Song_[ProjectData]"), (Found{true, std::nullopt}));
    EXPECT_EQ(found.size(), 2U);
}

TEST_F(PosixListing, AsksForNoSizesUnlessTheyAreWanted) {
    TARVOLT_SKIP_WITH_PLAIN_POSIX("tell the kinds of the entries without asking for each");
    folder.write("Song.xpj", "x");
    folder.makeFolder("folder");
    std::map<std::string, Found> found;
    int asked = 0;
    const auto counting = [&](const testing::SystemCall& call) {
        asked += testing::isStatusOfOpenFile(call) ? 0 : 1;
        return std::optional<long>();
    };
    if (const auto reason = withCallsAnswered({SYS_newfstatat}, counting, [&] {
            disk->contentsOfDirectory(folder.path(), LinkPolicy::follow, Sizes::skip, [&](const DirectoryEntry& entry) {
                found[std::string(entry.name)] = {entry.isDirectory, entry.fileSize};
            });
        })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(found.at("Song.xpj"), (Found{false, std::nullopt}));
    EXPECT_EQ(found.at("folder"), (Found{true, std::nullopt}));
}

TEST_F(PosixListing, LeavesOutHiddenEntries) {
    folder.write(".hidden.xpj", "x");
    folder.makeFolder("._[ProjectData]");
    folder.write("seen", "x");
    EXPECT_THAT(list(folder.path()), UnorderedElementsAre(Key("seen")));
}

TEST_F(PosixListing, DescribesLinksWithoutFollowingThem) {
    std::filesystem::create_symlink(folder.makeFolder("there"), folder / "link");
    std::filesystem::create_symlink("nowhere", folder / "dangling");
    const auto found = list(folder.path());
    EXPECT_EQ(found.at("link").isDirectory, false);
    EXPECT_EQ(found.at("link").fileSize, static_cast<std::int64_t>((folder / "there").native().size()));
    EXPECT_EQ(found.at("dangling"), (Found{false, 7}));
}

TEST_F(PosixListing, DescribesAPipeWithoutOpeningIt) {
    ASSERT_EQ(::mkfifo((folder / "pipe.xpj").c_str(), 0600), 0);
    EXPECT_EQ(list(folder.path()).at("pipe.xpj").isDirectory, false);
}

TEST_F(PosixListing, KeepsTheBytesOfNames) {
    folder.write("caf\xe9\n.xpj", "x");
    folder.write(std::string(255, 'n'), "x");
    EXPECT_THAT(list(folder.path()), UnorderedElementsAre(Key("caf\xe9\n.xpj"), Key(std::string(255, 'n'))));
}

TEST_F(PosixListing, FollowsALinkToTheFolderOnlyWhenAsked) {
    folder.write("there/a", "x");
    std::filesystem::create_directory_symlink("there", folder / "link");
    EXPECT_THAT(list(folder / "link"), UnorderedElementsAre(Key("a")));
    EXPECT_EQ(errorOfListing(folder / "link", LinkPolicy::refuse), ENOTDIR);
    EXPECT_THAT(list(folder / "there", LinkPolicy::refuse), UnorderedElementsAre(Key("a")));
}

TEST_F(PosixListing, ReportsWhyAFolderCannotBeListed) {
    folder.write("file", "x");
    EXPECT_EQ(errorOfListing(folder / "gone"), ENOENT);
    EXPECT_EQ(errorOfListing(folder / "file"), ENOTDIR);
    EXPECT_EQ(errorOfListing(folder.path().native() + std::string("\0/x", 3)), EINVAL);
    EXPECT_EQ(errorOfListing(folder / std::string(300, 'n')), ENAMETOOLONG);
    const auto closed = folder.makeFolder("closed");
    ASSERT_EQ(::chmod(closed.c_str(), 0), 0);
    testing::withoutPrivileges([&] { EXPECT_EQ(errorOfListing(closed), EACCES); });
}

TEST_F(PosixListing, VisitsEntriesWithoutSizesInAFolderThatCanOnlyBeListed) {
    const auto closed = folder.makeFolder("closed");
    folder.write("closed/a", "x");
    ASSERT_EQ(::chmod(closed.c_str(), 0400), 0);
    testing::withoutPrivileges([&] { EXPECT_EQ(list(closed).at("a").fileSize, std::nullopt); });
}

TEST_F(PosixListing, VisitsAnEntryThatVanishesMeanwhileWithoutASize) {
    TARVOLT_SKIP_WITH_PLAIN_POSIX("tell the kind of an entry that is gone");
    folder.write("a", "x");
    const auto vanishing = [&](const testing::SystemCall& call) -> std::optional<long> {
        if (call.text(1) == "a") {
            std::filesystem::remove(folder / "a");
        }
        return std::nullopt;
    };
    if (const auto reason = withCallsAnswered({SYS_newfstatat}, vanishing, [&] {
            EXPECT_EQ(list(folder.path()).at("a"), (Found{false, std::nullopt}));
        })) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(PosixListing, ExaminesEveryEntryWhoseKindTheListingOmits) {
    folder.write("a", "12345");
    folder.makeFolder("b");
    if (const auto reason = withCallsAnswered(
            {SYS_getdents64}, [](const auto& call) { return std::optional<long>(testing::listingWithoutKinds(call)); },
            [&] {
                const auto found = list(folder.path());
                EXPECT_EQ(found.at("a"), (Found{false, 5}));
                EXPECT_EQ(found.at("b"), (Found{true, std::nullopt}));
            })) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(PosixListing, LeavesTheKindUnknownIfNeitherTheListingNorTheFolderRevealsIt) {
    folder.write("a", "x");
    folder.makeFolder("b");
    const auto withoutKinds = [](const testing::SystemCall& call) -> std::optional<long> {
        if (call.number == SYS_getdents64) {
            return testing::listingWithoutKinds(call);
        }
        return call.text(1).empty() ? std::nullopt : std::optional<long>(-EACCES);
    };
    if (const auto reason = withCallsAnswered({SYS_getdents64, SYS_newfstatat}, withoutKinds, [&] {
            const auto found = list(folder.path());
            EXPECT_EQ(found.at("a"), (Found{std::nullopt, std::nullopt}));
            EXPECT_EQ(found.at("b"), (Found{std::nullopt, std::nullopt}));
        })) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(PosixListing, FailsWhenItBreaksOffHalfway) {
    for (int at = 0; at < 3000; ++at) {
        folder.write("entry " + std::to_string(at), "");
    }
    int calls = 0;
    const auto breaking = [&](const testing::SystemCall&) {
        return ++calls == 2 ? std::optional<long>(-EIO) : std::nullopt;
    };
    std::size_t visited = 0;
    int error = 0;
    const auto reason = withCallsAnswered({SYS_getdents64}, breaking, [&] {
        try {
            disk->contentsOfDirectory(folder.path(), LinkPolicy::follow, Sizes::ask,
                                      [&](const DirectoryEntry&) { ++visited; });
        } catch (const FileError& failure) {
            error = failure.code().value();
        }
    });
    if (reason) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(error, EIO);
    EXPECT_GT(visited, 0U);
    EXPECT_LT(visited, 3000U);
}

TEST_F(PosixListing, OpensTheFolderAgainAfterASignal) {
    folder.write("a", "x");
    int calls = 0;
    const auto interrupting = [&](const testing::SystemCall&) {
        return ++calls == 1 ? std::optional<long>(-EINTR) : std::nullopt;
    };
    if (const auto reason =
            withCallsAnswered({SYS_openat}, interrupting, [&] { EXPECT_EQ(list(folder.path()).size(), 1U); })) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(PosixListing, ContinuesWhenASignalInterruptsIt) {
    constexpr int entries = 3000;
    for (int at = 0; at < entries; ++at) {
        folder.write("entry " + std::to_string(at), "");
    }
    int calls = 0;
    const auto interrupting = [&](const testing::SystemCall&) {
        return ++calls % 2 == 0 ? std::optional<long>(-EINTR) : std::nullopt;
    };
    std::size_t found = 0;
    if (const auto reason =
            withCallsAnswered({SYS_getdents64}, interrupting, [&] { found = list(folder.path()).size(); })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(found, std::size_t{entries});
    EXPECT_GT(calls, 3);
}

TEST_F(PosixListing, LeavesNoDescriptorOpenWhenTheVisitorThrows) {
    folder.write("a", "x");
    const auto open = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const auto before = open();
    EXPECT_THROW(disk->contentsOfDirectory(folder.path(), LinkPolicy::follow, Sizes::ask,
                                           [](const DirectoryEntry&) { throw std::bad_alloc(); }),
                 std::bad_alloc);
    EXPECT_EQ(open(), before);
}

} // namespace
} // namespace tarvolt
