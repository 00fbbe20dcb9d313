// Something odd is in the place of a project's files. The scan and the rename return, follow nothing out of the
// folder and leave it as it is.
#include "foundation/file_manager.h"
#include "model/mpc_scanner.h"
#include "tests/support/renaming.h"
#include "tests/support/scene.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tarvolt {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

/// Puts the odd item at `path`; `outside` is a folder with contents beside the chosen one. Returns why that cannot be
/// done here, or nothing.
using Making = std::optional<std::string> (*)(const fs::path& path, const fs::path& outside);

struct OddThing {
    const char* name;
    Making make;
};

void PrintTo(const OddThing& thing, std::ostream* out) {
    *out << thing.name;
}

std::optional<std::string> makePipe(const fs::path& path, const fs::path&) {
    return ::mkfifo(path.c_str(), 0600) == 0 ? std::nullopt : std::optional<std::string>(std::strerror(errno));
}

/// That of /dev/zero, which never ends.
std::optional<std::string> makeDevice(const fs::path& path, const fs::path&) {
    const bool made = ::mknod(path.c_str(), S_IFCHR | 0600, makedev(1, 5)) == 0;
    return made ? std::nullopt : std::optional<std::string>("this user can make no device");
}

std::optional<std::string> linkTo(const fs::path& target, const fs::path& path) {
    fs::create_symlink(target, path);
    return std::nullopt;
}

std::optional<std::string> makeFolder(const fs::path& path, const fs::path&) {
    fs::create_directories(path / "inside");
    return std::nullopt;
}

const OddThing pipeThing{"APipe", makePipe};
const OddThing socketThing{"ASocket", [](const fs::path& path, const fs::path&) { return testing::makeSocket(path); }};
const OddThing deviceThing{"ADevice", makeDevice};
const OddThing danglingThing{"ALinkToNowhere",
                             [](const fs::path& path, const fs::path&) { return linkTo("no", path); }};
const OddThing loopThing{"ALinkToItself",
                         [](const fs::path& path, const fs::path&) { return linkTo(path.filename(), path); }};
const OddThing linkToFileThing{"ALinkToAFileOutside", [](const fs::path& path, const fs::path& outside) {
                                   return linkTo(outside / "more/big.wav", path);
                               }};
const OddThing linkToFolderThing{"ALinkToAFolderOutside",
                                 [](const fs::path& path, const fs::path& outside) { return linkTo(outside, path); }};
const OddThing linkToDeviceThing{"ALinkToADevice",
                                 [](const fs::path& path, const fs::path&) { return linkTo("/dev/zero", path); }};
const OddThing folderThing{"AFolder", makeFolder};

const OddThing noFolders[] = {pipeThing, socketThing,     deviceThing,       danglingThing,
                              loopThing, linkToFileThing, linkToFolderThing, linkToDeviceThing};
const OddThing unreadables[] = {pipeThing, socketThing,       deviceThing,       danglingThing,
                                loopThing, linkToFolderThing, linkToDeviceThing, folderThing};
const OddThing all[] = {pipeThing,       socketThing,       deviceThing,       danglingThing, loopThing,
                        linkToFileThing, linkToFolderThing, linkToDeviceThing, folderThing};

class HostileFolder : public ::testing::TestWithParam<OddThing> {
protected:
    HostileFolder() {
        folder.write("outside/text", "Song_[ProjectData] of somebody else");
        folder.write("outside/more/big.wav", std::string(100'000, 'x'));
        fs::create_directory(projects);
    }

    void makeSong(bool withFile = true, bool withFolder = true) const {
        if (withFile) {
            folder.write("projects/Song.xpj", "<a>Song_[ProjectData]/kick.wav</a>");
        }
        if (withFolder) {
            folder.write("projects/Song_[ProjectData]/kick.wav", "boom");
        }
    }

    /// Puts the odd item there under this name. False if the test is to be skipped because of `skipped`.
    bool put(const std::string& name) {
        skipped = GetParam().make(projects / name, folder / "outside");
        return !skipped;
    }

    const std::vector<MPCProject>& scan() {
        scanner->folderURL.set(projects);
        scanner->scan();
        scene.settle();
        return scanner->projects.get();
    }

    std::string rename(const std::string& newName) {
        const auto& found = scan();
        return found.size() == 1 ? testing::errorOfRename(*scanner, found.front(), newName) : "no such project";
    }

    const TemporaryFolder folder;
    const fs::path projects = folder / "projects";
    const testing::Scene scene;
    const std::shared_ptr<MPCScanner> scanner = MPCScanner::create(scene.services(makePosixFileManager()));
    std::optional<std::string> skipped;
};

#define PUT_OR_SKIP(name)                                                                                              \
    if (!put(name))                                                                                                    \
    GTEST_SKIP() << *skipped

const auto nameOfThing = [](const auto& test) { return std::string(test.param.name); };

class InPlaceOfTheProjectFile : public HostileFolder {};
INSTANTIATE_TEST_SUITE_P(OfAll, InPlaceOfTheProjectFile, ::testing::ValuesIn(unreadables), nameOfThing);

TEST_P(InPlaceOfTheProjectFile, IsListedAndCannotBeRead) {
    makeSong(false);
    PUT_OR_SKIP("Song.xpj");
    const auto before = folder.tree();
    ASSERT_EQ(scan().size(), 1U);
    EXPECT_LT(scan().front().totalSize(), 1000);
    EXPECT_EQ(rename("Beat"), "Failed to read file: Song.xpj");
    EXPECT_EQ(folder.tree(), before);
}

class InPlaceOfTheDataFolder : public HostileFolder {};
INSTANTIATE_TEST_SUITE_P(OfAll, InPlaceOfTheDataFolder, ::testing::ValuesIn(noFolders), nameOfThing);

TEST_P(InPlaceOfTheDataFolder, IsNotADataFolderAndStaysWhereItIs) {
    makeSong(true, false);
    PUT_OR_SKIP("Song_[ProjectData]");
    auto expected = folder.tree();
    EXPECT_EQ(scan().front().dataFolderURL(), std::nullopt);
    EXPECT_EQ(scan().front().fileCount(), 0);
    EXPECT_EQ(rename("Beat"), "");
    *std::find(expected.begin(), expected.end(), "projects/Song.xpj=<a>Song_[ProjectData]/kick.wav</a>") =
        "projects/Beat.xpj=<a>Beat_[ProjectData]/kick.wav</a>";
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(folder.tree(), expected);
}

TEST_P(InPlaceOfTheDataFolder, IsMovedItselfIfTheRecordSaysThereIsAFolder) {
    makeSong(true, false);
    fs::create_directory(projects / "Song_[ProjectData]");
    const auto project = scan().front();
    ASSERT_TRUE(project.dataFolderURL());
    fs::remove(projects / "Song_[ProjectData]");
    PUT_OR_SKIP("Song_[ProjectData]");
    const auto outside = testing::treeOf(folder / "outside");
    // Not followed, not opened, not emptied.
    EXPECT_EQ(testing::errorOfRename(*scanner, project, "Beat"), "");
    EXPECT_EQ(testing::treeOf(folder / "outside"), outside);
    struct stat status {};
    EXPECT_EQ(::lstat((projects / "Beat_[ProjectData]").c_str(), &status), 0);
}

class InPlaceOfTheNewProjectFile : public HostileFolder {};
INSTANTIATE_TEST_SUITE_P(OfAll, InPlaceOfTheNewProjectFile, ::testing::ValuesIn(all), nameOfThing);

TEST_P(InPlaceOfTheNewProjectFile, IsSeenAndNothingIsTouched) {
    makeSong();
    const auto project = scan().front();
    PUT_OR_SKIP("Beat.xpj");
    const auto before = folder.tree();
    EXPECT_EQ(testing::errorOfRename(*scanner, project, "Beat"), "A project named \"Beat\" already exists.");
    EXPECT_EQ(folder.tree(), before);
}

class InPlaceOfTheNewDataFolder : public HostileFolder {};
INSTANTIATE_TEST_SUITE_P(OfAll, InPlaceOfTheNewDataFolder, ::testing::ValuesIn(all), nameOfThing);

TEST_P(InPlaceOfTheNewDataFolder, StopsTheMoveAndNothingIsTouched) {
    makeSong();
    PUT_OR_SKIP("Beat_[ProjectData]");
    const auto before = folder.tree();
    EXPECT_EQ(rename("Beat"), "Failed to write file: Could not rename data folder: File exists");
    EXPECT_EQ(folder.tree(), before);
}

class BesideTheProject : public HostileFolder {};
INSTANTIATE_TEST_SUITE_P(OfAll, BesideTheProject, ::testing::ValuesIn(all), nameOfThing);

TEST_P(BesideTheProject, AndInItsDataFolderIsCountedButLeftAlone) {
    makeSong();
    PUT_OR_SKIP("odd");
    PUT_OR_SKIP("Song_[ProjectData]/odd");
    EXPECT_EQ(scan().front().fileCount(), 2);
    EXPECT_LT(scan().front().totalSize(), 1000);
    const auto outside = testing::treeOf(folder / "outside");
    EXPECT_EQ(rename("Beat"), "");
    EXPECT_EQ(testing::treeOf(folder / "outside"), outside);
    for (const char* name : {"odd", "Beat_[ProjectData]/odd"}) {
        struct stat status {};
        EXPECT_EQ(::lstat((projects / name).c_str(), &status), 0) << name;
    }
    EXPECT_EQ(scan().front().fileCount(), 2);
}

} // namespace
} // namespace tarvolt
