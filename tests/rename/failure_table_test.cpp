#include "foundation/file_manager.h"
#include "tests/support/call_faults.h"
#include "tests/support/circumstances.h"
#include "tests/support/recording_file_manager.h"
#include "tests/support/renaming.h"
#include "tests/support/scene.h"
#include "tests/support/small_disk.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <ostream>

namespace tarvolt {
namespace {

using Lines = std::vector<std::string>;
using testing::asOrdinaryUser;
using testing::Circumstances;
using testing::errorOfRename;
using testing::FakeFileManager;
using testing::projectIn;
using testing::SystemCall;
using testing::TemporaryFolder;

/// One failure: how it is caused on the disk in memory and on the real one, and what is expected.
struct Row {
    const char* fact;
    std::string newName = "Beat";
    bool folderChosen = true;
    std::function<void(FakeFileManager&)> onFake = [](FakeFileManager&) {};
    std::function<void(const TemporaryFolder&)> onDisk = [](const TemporaryFolder&) {};
    Circumstances during = testing::asUsual;
    std::string error = {};
    Lines traffic = {};
    Lines diskAfterwards = {};
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.fact;
}

const std::string oldText = "<a>Song_[ProjectData]/kick.wav</a>\r\n<b>Song</b>";
const std::string newText = "<a>Beat_[ProjectData]/kick.wav</a>\r\n<b>Song</b>";
const std::string oldFile = "Song.xpj=" + oldText;
const std::string newFile = "Beat.xpj=" + newText;
const Lines oldData{"Song_[ProjectData]/", "Song_[ProjectData]/kick.wav=boom"};
const Lines newData{"Beat_[ProjectData]/", "Beat_[ProjectData]/kick.wav=boom"};

// The calls of a successful rename, in order.
const Lines calls{"exists Beat.xpj", "state Song.xpj",  "state Song_[ProjectData]",
                  "read Song.xpj",   "create Beat.xpj", "move Song_[ProjectData] -> Beat_[ProjectData]",
                  "state Beat.xpj",  "remove Song.xpj"};
const std::string rollBack = "remove Beat.xpj";

/// These calls up to and including the first that starts like this, followed by `more`.
Lines upTo(const std::string& call, const Lines& more = {}) {
    const auto last = std::ranges::find_if(calls, [&](const auto& line) { return line.starts_with(call); });
    Lines lines(calls.begin(), last + 1);
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

Lines sorted(Lines lines, const Lines& more = {}) {
    lines.insert(lines.end(), more.begin(), more.end());
    std::sort(lines.begin(), lines.end());
    return lines;
}

const Lines unchanged = sorted(oldData, {oldFile});

/// The kernel refuses to remove the item of this name.
Circumstances whileUnremovable(const std::string& name, int error) {
    return [=](const std::function<void()>& rename) {
        return testing::withCallsAnswered(
            {SYS_unlinkat},
            [=](const SystemCall& call) { return call.text(1) == name ? std::optional<long>(-error) : std::nullopt; },
            rename);
    };
}

std::function<void(FakeFileManager&)> withoutMemoryFor(const std::string& operation) {
    return [=](FakeFileManager& disk) {
        disk.onCall = [=](const std::string& line) {
            if (line.starts_with(operation + " ")) {
                throw std::bad_alloc();
            }
        };
    };
}

const Row rows[] = {
    {.fact = "WithoutAChosenFolderNothingIsSaidOrDone", .folderChosen = false, .diskAfterwards = unchanged},
    {.fact = "ARefusedNameChangesNothing",
     .newName = "Be/at",
     .error = R"(Invalid name: Contains invalid characters: / < > : " | ? * \)",
     .diskAfterwards = unchanged},
    {.fact = "AnEmptyNameChangesNothing",
     .newName = " \t",
     .error = "Invalid name: Name cannot be empty",
     .diskAfterwards = unchanged},
    {.fact = "ATakenNameChangesNothing",
     .onFake = [](FakeFileManager& disk) { disk.addFile("/p/Beat.xpj", "other"); },
     .onDisk = [](const TemporaryFolder& folder) { folder.write("Beat.xpj", "other"); },
     .error = "A project named \"Beat\" already exists.",
     .traffic = upTo("exists"),
     .diskAfterwards = sorted(unchanged, {"Beat.xpj=other"})},
    {.fact = "AFolderTakesTheNameToo",
     .onFake = [](FakeFileManager& disk) { disk.addFolder("/p/Beat.xpj"); },
     .onDisk = [](const TemporaryFolder& folder) { folder.makeFolder("Beat.xpj"); },
     .error = "A project named \"Beat\" already exists.",
     .traffic = upTo("exists"),
     .diskAfterwards = sorted(unchanged, {"Beat.xpj/"})},
    {.fact = "AMissingFileCannotBeRead",
     .onFake = [](FakeFileManager& disk) { disk.lose("/p/Song.xpj"); },
     .onDisk = [](const TemporaryFolder& folder) { std::filesystem::remove(folder / "Song.xpj"); },
     .error = "Failed to read file: Song.xpj",
     .traffic = upTo("state"),
     .diskAfterwards = oldData},
    {.fact = "AClosedFileCannotBeRead",
     .onFake = [](FakeFileManager& disk) { disk.fail("read", EACCES); },
     .onDisk = [](const TemporaryFolder& folder) { ::chmod((folder / "Song.xpj").c_str(), 0200); },
     .during = asOrdinaryUser,
     .error = "Failed to read file: Song.xpj",
     .traffic = upTo("read"),
     .diskAfterwards = unchanged},
    {.fact = "TextThatIsNotUtf8CannotBeRead",
     .onFake = [](FakeFileManager& disk) { disk.addFile("/p/Song.xpj", "<\xff>"); },
     .onDisk = [](const TemporaryFolder& folder) { folder.write("Song.xpj", "<\xff>"); },
     .error = "Failed to read file: Song.xpj",
     .traffic = upTo("read"),
     .diskAfterwards = sorted(oldData, {"Song.xpj=<\xff>"})},
    {.fact = "TextThatCannotBeEncodedIsNotWritten",
     .newName = "Be\xed\xa0\x80",
     .error = "Failed to write file: Could not encode updated XML",
     .traffic = {"exists Be\xed\xa0\x80.xpj", "state Song.xpj", "state Song_[ProjectData]", "read Song.xpj"},
     .diskAfterwards = unchanged},
    {.fact = "AFileThatCannotBeCreatedLeavesTheProjectAsItWas",
     .onFake = [](FakeFileManager& disk) { disk.fail("create", EACCES); },
     .onDisk = [](const TemporaryFolder& folder) { ::chmod(folder.path().c_str(), 0500); },
     .during = asOrdinaryUser,
     .error = "Failed to write file: Beat.xpj",
     .traffic = upTo("create"),
     .diskAfterwards = unchanged},
    {.fact = "AFullDiskLeavesTheProjectAsItWas",
     .onFake = [](FakeFileManager& disk) { disk.fail("create", ENOSPC); },
     .during =
         [](const std::function<void()>& rename) {
             testing::withLimitedFileSize(16, rename);
             return std::optional<std::string>();
         },
     .error = "Failed to write file: Beat.xpj",
     .traffic = upTo("create"),
     .diskAfterwards = unchanged},
    {.fact = "RemovesTheNewFileWhenTheDataFolderCannotBeMoved",
     .onFake = [](FakeFileManager& disk) { disk.addFolder("/p/Beat_[ProjectData]"); },
     .onDisk = [](const TemporaryFolder& folder) { folder.makeFolder("Beat_[ProjectData]"); },
     .error = "Failed to write file: Could not rename data folder: File exists",
     .traffic = upTo("move", {rollBack}),
     .diskAfterwards = sorted(unchanged, {"Beat_[ProjectData]/"})},
    {.fact = "TellsOfTheFailedMoveAlsoWhenTheNewFileCannotBeRemovedAgain",
     .onFake =
         [](FakeFileManager& disk) {
             disk.addFolder("/p/Beat_[ProjectData]");
             disk.fail("remove", EIO);
         },
     .onDisk = [](const TemporaryFolder& folder) { folder.makeFolder("Beat_[ProjectData]"); },
     .during = whileUnremovable("Beat.xpj", EIO),
     .error = "Failed to write file: Could not rename data folder: File exists",
     .traffic = upTo("move", {rollBack}),
     .diskAfterwards = sorted(unchanged, {"Beat_[ProjectData]/", newFile})},
    {.fact = "KeepsBothFilesAndTheMovedFolderWhenTheOldFileCannotBeRemoved",
     .onFake = [](FakeFileManager& disk) { disk.fail("remove", EPERM); },
     .during = whileUnremovable("Song.xpj", EPERM),
     .error = "Failed to delete: Could not remove old .xpj: Operation not permitted",
     .traffic = upTo("remove"),
     .diskAfterwards = sorted(newData, {newFile, oldFile})},
};

// Failures that cannot be caused on a real disk.
const Row rowsInMemory[] = {
    {.fact = "NoMemoryForTheFileMeansItCannotBeRead",
     .onFake = withoutMemoryFor("read"),
     .error = "Failed to read file: Song.xpj",
     .traffic = upTo("state Song_"),
     .diskAfterwards = unchanged},
    {.fact = "NoMemoryForTheExistenceTestMeansThatNothingCanBeRead",
     .onFake = withoutMemoryFor("exists"),
     .error = "Failed to read file: Song.xpj",
     .traffic = {},
     .diskAfterwards = unchanged},
    {.fact = "NoMemoryForTheCreationMeansItFailed",
     .onFake = withoutMemoryFor("create"),
     .error = "Failed to write file: Beat.xpj",
     .traffic = upTo("read"),
     .diskAfterwards = unchanged},
    {.fact = "NoMemoryForTheMoveIsTheReasonInTheSystemsWordsAndRollsBack",
     .onFake = withoutMemoryFor("move"),
     .error = "Failed to write file: Could not rename data folder: Cannot allocate memory",
     .traffic = upTo("create", {rollBack}),
     .diskAfterwards = unchanged},
    {.fact = "NoMemoryForTheRemovalIsTheReasonInTheSystemsWords",
     .onFake = withoutMemoryFor("remove"),
     .error = "Failed to delete: Could not remove old .xpj: Cannot allocate memory",
     .traffic = upTo("state Beat"),
     .diskAfterwards = sorted(newData, {newFile, oldFile})},
};

Lines without(const std::string& folder, Lines lines) {
    for (auto& line : lines) {
        for (auto at = line.find(folder + "/"); at != std::string::npos; at = line.find(folder + "/")) {
            line.erase(at, folder.size() + 1);
        }
    }
    std::erase(lines, "");
    return lines;
}

std::string nameOf(const ::testing::TestParamInfo<Row>& test) {
    return test.param.fact;
}

class FailureInMemory : public ::testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(Table, FailureInMemory, ::testing::ValuesIn(rows), nameOf);
INSTANTIATE_TEST_SUITE_P(MemoryAlone, FailureInMemory, ::testing::ValuesIn(rowsInMemory), nameOf);

TEST_P(FailureInMemory, HasItsMessageItsOperationsAndItsDisk) {
    const auto& row = GetParam();
    const testing::Scene scene;
    scene.disk->addFolder("/p");
    scene.disk->addFile("/p/Song.xpj", oldText);
    scene.disk->addFolder("/p/Song_[ProjectData]");
    scene.disk->addFile("/p/Song_[ProjectData]/kick.wav", "boom");
    row.onFake(*scene.disk);
    const auto before = scene.disk->traffic().size();
    const auto scanner = MPCScanner::create(scene.services());
    if (row.folderChosen) {
        scanner->folderURL.set("/p");
    }

    EXPECT_EQ(errorOfRename(*scanner, projectIn("/p"), row.newName), row.error);

    auto traffic = scene.disk->traffic();
    traffic.erase(traffic.begin(), traffic.begin() + static_cast<std::ptrdiff_t>(before));
    EXPECT_EQ(without("/p", traffic), row.traffic);
    EXPECT_EQ(sorted(without("/p", scene.disk->disk())), row.diskAfterwards);
    scene.settle();
    EXPECT_THAT(testing::messages(*scanner), ::testing::IsEmpty());
}

class FailureOnDisk : public ::testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(Table, FailureOnDisk, ::testing::ValuesIn(rows), nameOf);

TEST_P(FailureOnDisk, HasItsMessageItsOperationsAndItsDisk) {
    const auto& row = GetParam();
    const TemporaryFolder folder;
    folder.write("Song.xpj", oldText);
    folder.write("Song_[ProjectData]/kick.wav", "boom");
    row.onDisk(folder);
    const auto disk = std::make_shared<testing::RecordingFileManager>(makePosixFileManager());
    const testing::Scene scene;
    const auto scanner = MPCScanner::create(scene.services(disk));
    if (row.folderChosen) {
        scanner->folderURL.set(folder.path());
    }

    std::string error = {};
    const auto reason = row.during([&] { error = errorOfRename(*scanner, projectIn(folder.path()), row.newName); });
    if (reason) {
        GTEST_SKIP() << *reason;
    }

    EXPECT_EQ(error, row.error);
    EXPECT_EQ(without(folder.path().native(), disk->traffic()), row.traffic);
    ::chmod(folder.path().c_str(), 0700);
    ::chmod((folder / "Song.xpj").c_str(), 0600);
    EXPECT_EQ(folder.tree(), row.diskAfterwards);
    scene.settle();
    EXPECT_THAT(testing::messages(*scanner), ::testing::IsEmpty());
}

} // namespace
} // namespace tarvolt
