#include "rename/rename_error.h"
#include "tests/support/file_contents.h"
#include "tests/support/renaming.h"
#include "tests/support/scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <new>
#include <string_view>

namespace tarvolt {
namespace {

using ::testing::ElementsAre;
using testing::errorOfRename;
using ::testing::IsEmpty;
using testing::projectIn;

class ProjectRename : public ::testing::Test {
protected:
    ProjectRename() {
        scene.disk->addFolder("/p");
        scene.disk->addFile("/p/Song.xpj", "<a>Song_[ProjectData]/kick.wav</a> Song");
        scene.disk->addFolder("/p/Song_[ProjectData]");
        scanner->folderURL.set("/p");
    }

    std::string rename(const std::string& newName) { return errorOfRename(*scanner, projectIn("/p"), newName); }

    std::string renameText(const std::string& text, const std::string& newName) {
        scene.disk->addFile("/p/Song.xpj", text);
        EXPECT_EQ(rename(newName), "");
        return testing::contentsOf(*scene.disk, "/p/" + newName + ".xpj").value_or("nothing");
    }

    const testing::Scene scene;
    const std::shared_ptr<MPCScanner> scanner = MPCScanner::create(scene.services());
};

TEST_F(ProjectRename, ChecksReadsWritesMovesAndRemovesInThisOrder) {
    EXPECT_EQ(rename("Beat"), "");
    EXPECT_THAT(scene.disk->traffic(),
                ElementsAre("exists /p/Beat.xpj", "state /p/Song.xpj", "state /p/Song_[ProjectData]",
                            "read /p/Song.xpj", "create /p/Beat.xpj",
                            "move /p/Song_[ProjectData] -> /p/Beat_[ProjectData]", "state /p/Beat.xpj",
                            "remove /p/Song.xpj"));
    EXPECT_THAT(scene.disk->disk(),
                ElementsAre("/p/", "/p/Beat.xpj=<a>Beat_[ProjectData]/kick.wav</a> Song", "/p/Beat_[ProjectData]/"));
}

/// Has no memory for any task.
class FullQueue final : public DispatchQueue {
public:
    void async(Task) override { throw std::bad_alloc(); }
    void asyncAfter(std::chrono::milliseconds, Task) override { throw std::bad_alloc(); }
};

TEST_F(ProjectRename, SucceedsEvenIfThereIsNoMemoryForItsLine) {
    auto services = scene.services();
    services.mainQueue = std::make_shared<FullQueue>();
    const auto full = MPCScanner::create(std::move(services));
    full->folderURL.set("/p");
    EXPECT_EQ(errorOfRename(*full, projectIn("/p"), "Beat"), "");
    EXPECT_TRUE(scene.disk->fileExists("/p/Beat.xpj"));
}

TEST_F(ProjectRename, ReturnsNormallyAndLogsNothingWithNoFolderChosen) {
    const auto fresh = MPCScanner::create(scene.services());
    EXPECT_EQ(errorOfRename(*fresh, projectIn("/p"), "Beat"), "");
    // Not even a name that would be refused is checked.
    EXPECT_EQ(errorOfRename(*fresh, projectIn("/p"), "/"), "");
    scene.settle();
    EXPECT_THAT(testing::messages(*fresh), IsEmpty());
    EXPECT_THAT(scene.disk->traffic(), IsEmpty());
}

TEST_F(ProjectRename, ToItsOwnCurrentNameFailsBecauseTheOldFileItselfExists) {
    EXPECT_EQ(rename("Song"), "A project named \"Song\" already exists.");
    EXPECT_THAT(scene.disk->traffic(), ElementsAre("exists /p/Song.xpj"));
}

TEST_F(ProjectRename, InLetterCaseOnlyFailsOnACaseInsensitiveFileSystem) {
    // There the new name finds the old file too.
    scene.disk->addLink("/p/SONG.xpj", "/p/Song.xpj");
    EXPECT_EQ(rename("SONG"), "A project named \"SONG\" already exists.");
}

TEST_F(ProjectRename, InLetterCaseOnlySucceedsOnACaseSensitiveFileSystem) {
    EXPECT_EQ(rename("SONG"), "");
    EXPECT_THAT(scene.disk->disk(),
                ElementsAre("/p/", "/p/SONG.xpj=<a>SONG_[ProjectData]/kick.wav</a> Song", "/p/SONG_[ProjectData]/"));
}

TEST_F(ProjectRename, RollsBackWhenTheNewDataFolderAlreadyExists) {
    scene.disk->addFolder("/p/Beat_[ProjectData]");
    const auto before = scene.disk->disk();
    EXPECT_EQ(rename("Beat"), "Failed to write file: Could not rename data folder: File exists");
    EXPECT_EQ(scene.disk->disk(), before);
}

TEST_F(ProjectRename, OfAProjectWithoutADataFolderWritesTheNewFileAndRemovesTheOldOne) {
    EXPECT_EQ(errorOfRename(*scanner, testing::projectWithoutDataFolderIn("/p"), "Beat"), "");
    EXPECT_THAT(scene.disk->traffic(), ElementsAre("exists /p/Beat.xpj", "state /p/Song.xpj", "read /p/Song.xpj",
                                                   "create /p/Beat.xpj", "state /p/Beat.xpj", "remove /p/Song.xpj"));
    EXPECT_THAT(scene.disk->disk(),
                ElementsAre("/p/", "/p/Beat.xpj=<a>Beat_[ProjectData]/kick.wav</a> Song", "/p/Song_[ProjectData]/"));
}

TEST_F(ProjectRename, ReplacesEveryOccurrence) {
    EXPECT_EQ(renameText("Song_[ProjectData] Song_[ProjectData]\nSong_[ProjectData]", "Beat"),
              "Beat_[ProjectData] Beat_[ProjectData]\nBeat_[ProjectData]");
}

TEST_F(ProjectRename, WritesATextWithoutReferencesUnchangedUnderTheNewName) {
    EXPECT_EQ(renameText("<xml>Song</xml>\r\n", "Beat"), "<xml>Song</xml>\r\n");
}

TEST_F(ProjectRename, LeavesTheBareWordAsItIs) {
    EXPECT_EQ(renameText("<f>Song_[ProjectData]</f><n>Song</n>", "Beat"), "<f>Beat_[ProjectData]</f><n>Song</n>");
}

TEST_F(ProjectRename, OfAFileThatIsNotUtf8FailsAndChangesNothing) {
    using namespace std::string_view_literals;
    for (const auto text : {"\xff\xfe<\0a\0>\0"sv, "caf\xe9"sv, "\xc0\xaf"sv, "\xed\xa0\x80"sv, "\xf4\x90\x80\x80"sv}) {
        scene.disk->addFile("/p/Song.xpj", std::string(text));
        const auto before = scene.disk->disk();
        EXPECT_EQ(rename("Beat"), "Failed to read file: Song.xpj");
        EXPECT_EQ(scene.disk->disk(), before);
    }
}

TEST_F(ProjectRename, WritesAnAmpersandUnescaped) {
    EXPECT_EQ(renameText("<f>Song_[ProjectData]</f>&amp;", "R&B"), "<f>R&B_[ProjectData]</f>&amp;");
}

TEST_F(ProjectRename, LogsItsSuccessAsTheNewestLineAndLeavesTheListAlone) {
    scanner->projects.set({projectIn("/p")});
    scanner->log("earlier", false);
    EXPECT_EQ(rename("Beat"), "");
    // Like every line, it goes through the main queue.
    EXPECT_THAT(testing::messages(*scanner), IsEmpty());
    scene.settle();
    EXPECT_THAT(testing::messages(*scanner), ElementsAre("Renamed \"Song\" \u2192 \"Beat\"", "earlier"));
    EXPECT_THAT(testing::names(scanner->projects.get()), ElementsAre("Song"));
    EXPECT_EQ(scene.background->pending(), 0U);
}

TEST_F(ProjectRename, KeepsAByteOrderMark) {
    EXPECT_EQ(renameText("\xef\xbb\xbf<f>Song_[ProjectData]</f>", "Beat"), "\xef\xbb\xbf<f>Beat_[ProjectData]</f>");
}

TEST_F(ProjectRename, UsesTheNameWithItsSpaces) {
    EXPECT_EQ(rename(" Beat "), "");
    EXPECT_TRUE(scene.disk->fileExists("/p/ Beat .xpj"));
    EXPECT_TRUE(scene.disk->fileExists("/p/ Beat _[ProjectData]"));
}

TEST_F(ProjectRename, AppendsAnyAcceptedNameAsOneComponent) {
    for (const char* name : {".", "..", ".hidden", "~", "a\nb", "-rf"}) {
        scene.disk->addFile("/p/Song.xpj", "text");
        EXPECT_EQ(errorOfRename(*scanner, testing::projectWithoutDataFolderIn("/p"), name), "") << name;
        EXPECT_TRUE(scene.disk->fileExists(std::string("/p/") + name + ".xpj")) << name;
    }
}

TEST_F(ProjectRename, WritesIntoTheChosenFolderEvenIfTheRecordIsOfAnother) {
    scene.disk->addFolder("/q");
    scanner->folderURL.set("/q/"); // a trailing slash makes no difference
    EXPECT_EQ(rename("Beat"), "");
    EXPECT_THAT(scene.disk->disk(), ElementsAre("/p/", "/q/", "/q/Beat.xpj=<a>Beat_[ProjectData]/kick.wav</a> Song",
                                                "/q/Beat_[ProjectData]/"));
}

TEST_F(ProjectRename, NamesTheFileWithItsOwnExtensionWhenItCannotBeRead) {
    const MPCProject project("Song", "/p/Song.XPJ", std::nullopt, 0, 0);
    EXPECT_EQ(errorOfRename(*scanner, project, "Beat"), "Failed to read file: Song.XPJ");
}

TEST_F(ProjectRename, OfAProjectWhoseNameIsNotUtf8KeepsTheTextAndMovesEverything) {
    scene.disk->addFile("/p/caf\xe9.xpj", "caf\u00e9_[ProjectData]");
    scene.disk->addFolder("/p/caf\xe9_[ProjectData]");
    EXPECT_EQ(errorOfRename(*scanner, projectIn("/p", "caf\xe9"), "Tea"), "");
    EXPECT_EQ(testing::contentsOf(*scene.disk, "/p/Tea.xpj"), "caf\u00e9_[ProjectData]");
    EXPECT_TRUE(scene.disk->fileExists("/p/Tea_[ProjectData]"));
    EXPECT_FALSE(scene.disk->fileExists("/p/caf\xe9.xpj"));
}

TEST_F(ProjectRename, CannotEncodeALoneSurrogateEvenIfTheTextHasNoReference) {
    scene.disk->addFile("/p/Song.xpj", "<xml/>");
    const auto before = scene.disk->disk();
    EXPECT_EQ(rename("Beat\xed\xb0\x80"), "Failed to write file: Could not encode updated XML");
    EXPECT_EQ(scene.disk->disk(), before);
}

TEST_F(ProjectRename, FailsToReadBeforeItFailsToEncode) {
    scene.disk->fail("read", EIO);
    EXPECT_EQ(rename("Beat\xff"), "Failed to read file: Song.xpj");
}

// Every message that a rename can show, each caused in its own way.
TEST_F(ProjectRename, ShowsExactlyTheseMessages) {
    EXPECT_EQ(rename("a/b"), "Invalid name: Contains invalid characters: / < > : \" | ? * \\");
    EXPECT_EQ(rename("  "), "Invalid name: Name cannot be empty");
    EXPECT_EQ(rename("Song"), "A project named \"Song\" already exists.");
    EXPECT_EQ(errorOfRename(*scanner, projectIn("/p", "Gone"), "Beat"), "Failed to read file: Gone.xpj");
    EXPECT_EQ(rename("\xff"), "Failed to write file: Could not encode updated XML");
    scene.disk->fail("create", ENOSPC);
    EXPECT_EQ(rename("Beat"), "Failed to write file: Beat.xpj");
    scene.disk->fail("move", EACCES);
    EXPECT_EQ(rename("Beat"), "Failed to write file: Could not rename data folder: Permission denied");
    scene.disk->fail("remove", EPERM);
    EXPECT_EQ(rename("Beat"), "Failed to delete: Could not remove old .xpj: Operation not permitted");
}

} // namespace
} // namespace tarvolt
