// What the tests rely on in the disk in memory, tested on both it and the real one.
#include "tests/support/fake_file_manager.h"

#include "foundation/file_manager.h"
#include "tests/support/file_contents.h"
#include "tests/support/state_of.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cerrno>
#include <map>
#include <memory>
#include <string>

namespace tarvolt::testing {
namespace {

class FileManagerContract : public ::testing::TestWithParam<bool> {
protected:
    FileManagerContract() {
        if (inMemory) {
            fake->addFolder(path(""));
        }
    }

    /// The path of a name in the test's own folder.
    std::string path(const std::string& name) const {
        return (inMemory ? "/p" : folder.path().native()) + (name.empty() ? "" : "/" + name);
    }

    // Setting it up, bypassing the file manager.
    void write(const std::string& name, const std::string& contents) {
        inMemory ? void(fake->addFile(path(name), contents)) : void(folder.write(name, contents));
    }
    void makeFolder(const std::string& name) {
        inMemory ? void(fake->addFolder(path(name))) : void(folder.makeFolder(name));
    }
    void makeLink(const std::string& name, const std::string& target) {
        inMemory ? void(fake->addLink(path(name), path(target)))
                 : std::filesystem::create_symlink(path(target), path(name));
    }
    void makePipe(const std::string& name) {
        inMemory ? void(fake->addPipe(path(name))) : void(::mkfifo(path(name).c_str(), 0600));
    }

    /// The error of `operation`, or 0.
    template<class Operation> static int errorOf(const Operation& operation) {
        try {
            operation();
        } catch (const FileError& error) {
            return error.code().value();
        }
        return 0;
    }
    int errorOfListing(const std::string& name, LinkPolicy links = LinkPolicy::follow) {
        return errorOf([&] { disk->contentsOfDirectory(path(name), links, Sizes::ask, [](const DirectoryEntry&) {}); });
    }
    int errorOfMove(const std::string& from, const std::string& to, std::optional<FileIdentity> onlyIf = {}) {
        const auto item = onlyIf.value_or(testing::identityOf(*disk, path(from)));
        return errorOf([&] { disk->moveItem(path(from), path(to), item); });
    }
    int errorOfRemoval(const std::string& name, std::optional<FileState> onlyIf = {}) {
        const auto item = onlyIf.value_or(testing::stateOf(*disk, path(name)));
        return errorOf([&] { disk->removeItem(path(name), item); });
    }

    const bool inMemory = GetParam();
    const TemporaryFolder folder;
    const std::shared_ptr<FakeFileManager> fake = std::make_shared<FakeFileManager>();
    const std::shared_ptr<FileManager> disk = inMemory ? fake : makePosixFileManager();
};

INSTANTIATE_TEST_SUITE_P(OfADisk, FileManagerContract, ::testing::Values(true, false),
                         [](const auto& test) { return test.param ? "InMemory" : "ThatIsReal"; });

TEST_P(FileManagerContract, ListsOneLevelWithKindsAndSizesButWithoutHiddenEntries) {
    write("Song.xpj", "12345");
    makeFolder("folder");
    write("folder/inside", "1");
    write(".hidden", "1");
    makeLink("link", "folder");
    makePipe("pipe");
    std::map<std::string, std::string> found;
    disk->contentsOfDirectory(path(""), LinkPolicy::follow, Sizes::ask, [&](const DirectoryEntry& entry) {
        found[std::string(entry.name)] = (entry.isDirectory.value_or(false) ? "folder " : "") +
                                         (entry.fileSize ? std::to_string(*entry.fileSize) : "no size");
    });
    EXPECT_EQ(found, (std::map<std::string, std::string>{{"Song.xpj", "5"},
                                                         {"folder", "folder no size"},
                                                         {"link", std::to_string(path("folder").size())},
                                                         {"pipe", "0"}}));
}

TEST_P(FileManagerContract, GivesTheSizeOfAnItemThatIsNoFolder) {
    write("file", "12345");
    makeFolder("folder");
    write("folder/inside", "1");
    makeLink("link", "folder");
    EXPECT_EQ(disk->state(path("file"))->size, 5);
    EXPECT_EQ(disk->state(path("folder"))->size, 0);
    EXPECT_EQ(disk->state(path("link"))->size, static_cast<std::int64_t>(path("folder").size()));
}

TEST_P(FileManagerContract, ListsOnlyFoldersAndFollowsLinksOnlyWhenAsked) {
    write("file", "1");
    makeFolder("folder");
    makeLink("link", "folder");
    makeLink("dangling", "nowhere");
    EXPECT_EQ(errorOfListing("folder"), 0);
    EXPECT_EQ(errorOfListing("link"), 0);
    EXPECT_EQ(errorOfListing("link", LinkPolicy::refuse), ENOTDIR);
    EXPECT_EQ(errorOfListing("file"), ENOTDIR);
    EXPECT_EQ(errorOfListing("gone"), ENOENT);
    EXPECT_EQ(errorOfListing("dangling"), ENOENT);
}

TEST_P(FileManagerContract, ReadsThroughALinkButDescribesTheLinkItself) {
    write("file", "text");
    makeFolder("folder");
    makePipe("pipe");
    makeLink("link", "file");
    makeLink("link to folder", "folder");
    makeLink("dangling", "nowhere");
    EXPECT_EQ(testing::contentsOf(*disk, path("file")), "text");
    EXPECT_EQ(testing::contentsOf(*disk, path("link")), "text");
    for (const char* name : {"folder", "pipe", "link to folder", "dangling"}) {
        EXPECT_EQ(testing::contentsOf(*disk, path(name)), std::nullopt) << name;
        EXPECT_TRUE(disk->fileExists(path(name))) << name;
    }
    EXPECT_EQ(testing::contentsOf(*disk, path("gone")), std::nullopt);
    EXPECT_FALSE(disk->fileExists(path("gone")));
    EXPECT_NE(disk->state(path("link"))->identity, disk->state(path("file"))->identity);
}

TEST_P(FileManagerContract, CreatesAFileOnlyInAFolderThatHasNothingOfThatName) {
    const auto created = disk->createFile(path("new"), testing::inOnePart("text"));
    ASSERT_TRUE(created);
    EXPECT_EQ(testing::contentsOf(*disk, path("new")), "text");
    EXPECT_EQ(disk->state(path("new"))->identity, created->identity);
    makeFolder("folder");
    makeLink("dangling", "nowhere");
    for (const char* name : {"new", "folder", "dangling", "gone/new", "new/inside"}) {
        EXPECT_FALSE(disk->createFile(path(name), testing::inOnePart("other"))) << name;
    }
    EXPECT_EQ(testing::contentsOf(*disk, path("new")), "text");
    EXPECT_FALSE(disk->fileExists(path("nowhere")));
}

TEST_P(FileManagerContract, DistinguishesAnItemFromItselfAfterAWriteOrReplacement) {
    write("file", "text");
    const auto before = disk->state(path("file"));
    ASSERT_TRUE(before);
    EXPECT_EQ(before->size, 4);
    EXPECT_EQ(disk->state(path("file")), before);
    write("file", "longer text");
    EXPECT_NE(disk->state(path("file")), before);
    EXPECT_EQ(disk->state(path("gone")), std::nullopt);
}

TEST_P(FileManagerContract, MovesAFolderWithItsContentsAndItsIdentity) {
    write("from/deep/file", "text");
    makeFolder("from");
    const auto before = disk->state(path("from"));
    ASSERT_TRUE(before);
    EXPECT_EQ(errorOfMove("from", "to", before->identity), 0);
    EXPECT_EQ(testing::contentsOf(*disk, path("to/deep/file")), "text");
    EXPECT_FALSE(disk->fileExists(path("from")));
    EXPECT_EQ(disk->state(path("to"))->identity, before->identity);
}

TEST_P(FileManagerContract, MovesNothingOntoAnythingAndOnlyTheItemMeant) {
    makeFolder("from");
    makeFolder("empty");
    makeLink("dangling", "nowhere");
    const auto meant = disk->state(path("from"))->identity;
    for (const char* name : {"empty", "dangling", "from"}) {
        EXPECT_EQ(errorOfMove("from", name, meant), EEXIST) << name;
    }
    EXPECT_EQ(errorOfMove("empty", "to", meant), EBUSY);
    EXPECT_EQ(errorOfMove("gone", "to"), ENOENT);
    EXPECT_EQ(errorOfMove("gone", "to", meant), ENOENT);
    EXPECT_EQ(errorOfMove("from", "gone/to"), ENOENT);
    EXPECT_TRUE(disk->fileExists(path("from")));
}

TEST_P(FileManagerContract, RemovesOnlyTheFileOrLinkMeantAndNeverAFolder) {
    write("file", "text");
    write("other", "text");
    makeFolder("folder");
    makeLink("link", "file");
    EXPECT_EQ(errorOfRemoval("link"), 0);
    EXPECT_EQ(testing::contentsOf(*disk, path("file")), "text");
    EXPECT_EQ(errorOfRemoval("folder"), EISDIR);
    EXPECT_EQ(errorOfRemoval("gone"), ENOENT);
    EXPECT_EQ(errorOfRemoval("other", disk->state(path("file"))), EBUSY);
    EXPECT_EQ(errorOfRemoval("file", disk->state(path("file"))), 0);
    EXPECT_FALSE(disk->fileExists(path("file")));
    EXPECT_TRUE(disk->fileExists(path("other")));
}

} // namespace
} // namespace tarvolt::testing
