// Every way a scan can fail, on the disk in memory and on the real one.
#include "foundation/file_manager.h"
#include "model/mpc_scanner.h"
#include "tests/support/call_faults.h"
#include "tests/support/circumstances.h"
#include "tests/support/recording_file_manager.h"
#include "tests/support/scene.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tarvolt {
namespace {

using Lines = std::vector<std::string>;
using testing::asOrdinaryUser;
using testing::Circumstances;
using testing::FakeFileManager;
using testing::SystemCall;
using testing::TemporaryFolder;

/// One failure: how it is caused on the disk in memory and on the real one, and what is expected.
struct Row {
    const char* fact;
    bool folderChosen = true;
    bool scannerKept = true;
    std::function<void(FakeFileManager&)> onFake = [](FakeFileManager&) {};
    std::function<void(const TemporaryFolder&)> onDisk = [](const TemporaryFolder&) {};
    std::string closed = {}; ///< the folder on the real disk that cannot be opened during the scan
    Circumstances during = testing::asUsual;
    Lines log = {}; ///< newest first
    Lines traffic = {};
    Lines projects = {};
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.fact;
}

/// The kernel reveals neither kind nor size of the items with these names, and no listing reveals the kind.
Circumstances whileUnreadable(const Lines& names) {
    const auto answer = [names](const SystemCall& call) -> std::optional<long> {
        if (call.number == SYS_newfstatat) {
            const auto name = std::filesystem::path(call.text(1)).filename().native();
            const bool isUnreadable = std::find(names.begin(), names.end(), name) != names.end();
            return isUnreadable ? std::optional<long>(-EACCES) : std::nullopt;
        }
        return testing::listingWithoutKinds(call);
    };
    return [answer](const std::function<void()>& scan) {
        return testing::withCallsAnswered({SYS_newfstatat, SYS_getdents64}, answer, scan);
    };
}

/// The listing fails after the entries of its first call.
std::optional<std::string> whileListingsBreakOff(const std::function<void()>& scan) {
    int calls = 0;
    const auto breaking = [&](const SystemCall&) { return ++calls == 2 ? std::optional<long>(-EIO) : std::nullopt; };
    return testing::withCallsAnswered({SYS_getdents64}, breaking, scan);
}

const std::string foundBoth = "Found 1 .xpj file(s) and 1 data folder(s)";
const std::string none = "Scan complete: 0 project(s)";
const std::string one = "Scan complete: 1 project(s)";
const std::string listedIt = "list /p";
const std::string listedData = "list /p/Song_[ProjectData]";
const std::string asked = "state /p/Song.xpj";

const Row rows[] = {
    {.fact = "WithoutAChosenFolderNothingHappens", .folderChosen = false},
    {.fact = "WhenTheScannerIsGoneBeforeTheBackgroundStepNothingHappens", .scannerKept = false},
    {.fact = "AFolderThatCannotBeReadIsAnErrorLineAndThenNoProjects",
     .onFake = [](FakeFileManager& disk) { disk.fail("list", EACCES); },
     .closed = "p",
     .during = asOrdinaryUser,
     .log = {none, "! Scan error: The folder \"p\" could not be read: Permission denied"},
     .traffic = {listedIt}},
    {.fact = "AFolderThatIsGoneIsAnErrorLineAndThenNoProjects",
     .onFake = [](FakeFileManager& disk) { disk.relocate("/p", "/q"); },
     .onDisk = [](const TemporaryFolder& folder) { std::filesystem::rename(folder / "p", folder / "q"); },
     .log = {none, "! Scan error: The folder \"p\" could not be read: No such file or directory"},
     .traffic = {listedIt}},
    {.fact = "AFileChosenAsAFolderIsAnErrorLineAndThenNoProjects",
     .onFake =
         [](FakeFileManager& disk) {
             disk.relocate("/p", "/q");
             disk.addFile("/p", "text");
         },
     .onDisk =
         [](const TemporaryFolder& folder) {
             std::filesystem::rename(folder / "p", folder / "q");
             folder.write("p", "text");
         },
     .log = {none, "! Scan error: The folder \"p\" could not be read: Not a directory"},
     .traffic = {listedIt}},
    {.fact = "AListingThatBreaksOffIsAFailedOneNotAShortOne",
     .onFake =
         [](FakeFileManager& disk) {
             auto& folder = disk.addFolder("/p");
             folder.listError = EIO;
             folder.listErrorAfter = 1;
         },
     .during = whileListingsBreakOff,
     .log = {none, "! Scan error: The folder \"p\" could not be read: Input/output error"},
     .traffic = {listedIt}},
    {.fact = "AnEntryOfUnknownKindIsNoFolder",
     .onFake = [](FakeFileManager& disk) { disk.addFolder("/p/Song_[ProjectData]").kindUnreadable = true; },
     .during = whileUnreadable({"Song_[ProjectData]"}),
     .log = {one, "Found 1 .xpj file(s) and 0 data folder(s)"},
     .traffic = {listedIt, asked},
     .projects = {"Song, no data folder, 0 entries, 5 bytes"}},
    {.fact = "AProjectWhoseDataFolderCannotBeListedIsKeptWithItsOwnSize",
     .onFake = [](FakeFileManager& disk) { disk.addFolder("/p/Song_[ProjectData]").listError = EACCES; },
     .closed = "p/Song_[ProjectData]",
     .during = asOrdinaryUser,
     .log = {one, foundBoth},
     .traffic = {listedIt, listedData, asked},
     .projects = {"Song, 0 entries, 5 bytes"}},
    {.fact = "ASizeThatCannotBeReadIsNotAddedButItsEntryCounts",
     .onFake =
         [](FakeFileManager& disk) {
             disk.addFile("/p/Song.xpj", 5).sizeUnreadable = true;
             disk.addFile("/p/Song_[ProjectData]/a.wav", 10).sizeUnreadable = true;
         },
     .during = whileUnreadable({"Song.xpj", "a.wav"}),
     .log = {one, foundBoth},
     .traffic = {listedIt, listedData, asked},
     .projects = {"Song, 2 entries, 100 bytes"}},
};

Lines summaries(const std::vector<MPCProject>& projects) {
    Lines lines;
    for (const auto& project : projects) {
        lines.push_back(project.baseName() + (project.dataFolderURL() ? ", " : ", no data folder, ") +
                        std::to_string(project.fileCount()) + " entries, " + std::to_string(project.totalSize()) +
                        " bytes");
    }
    return lines;
}

Lines without(const std::string& root, Lines lines) {
    for (auto& line : lines) {
        line.replace(line.find(root), root.size(), "");
    }
    return lines;
}

std::string nameOf(const ::testing::TestParamInfo<Row>& test) {
    return test.param.fact;
}

/// Sets `folder` up as in the row, scans it, and expects the row's log and projects.
void scan(const Row& row, const testing::Scene& scene, Services services, const std::filesystem::path& folder) {
    auto scanner = MPCScanner::create(std::move(services));
    if (row.folderChosen) {
        scanner->folderURL.set(folder);
    }
    scanner->scan();
    if (!row.scannerKept) {
        scanner.reset();
    }
    scene.settle();
    if (scanner) {
        EXPECT_EQ(testing::messages(*scanner), row.log);
        EXPECT_EQ(summaries(scanner->projects.get()), row.projects);
        EXPECT_FALSE(scanner->isScanning.get());
    }
}

class ScanFailureInMemory : public ::testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(Table, ScanFailureInMemory, ::testing::ValuesIn(rows), nameOf);

TEST_P(ScanFailureInMemory, HasItsLogItsOperationsAndItsProjectsAndChangesNothing) {
    const auto& row = GetParam();
    const testing::Scene scene;
    scene.disk->addFolder("/");
    scene.disk->addFolder("/p");
    scene.disk->addFile("/p/Song.xpj", "12345");
    scene.disk->addFolder("/p/Song_[ProjectData]");
    scene.disk->addFile("/p/Song_[ProjectData]/a.wav", 10);
    scene.disk->addFile("/p/Song_[ProjectData]/b.wav", 100);
    row.onFake(*scene.disk);
    const auto before = scene.disk->disk();
    const auto callsBefore = static_cast<std::ptrdiff_t>(scene.disk->traffic().size());

    scan(row, scene, scene.services(), "/p");

    auto traffic = scene.disk->traffic();
    traffic.erase(traffic.begin(), traffic.begin() + callsBefore);
    EXPECT_EQ(traffic, row.traffic);
    EXPECT_EQ(scene.disk->disk(), before);
}

class ScanFailureOnDisk : public ::testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(Table, ScanFailureOnDisk, ::testing::ValuesIn(rows), nameOf);

TEST_P(ScanFailureOnDisk, HasItsLogItsOperationsAndItsProjectsAndChangesNothing) {
    const auto& row = GetParam();
    const TemporaryFolder folder;
    folder.write("p/Song.xpj", "12345");
    folder.write("p/Song_[ProjectData]/a.wav", std::string(10, 'x'));
    folder.write("p/Song_[ProjectData]/b.wav", std::string(100, 'x'));
    row.onDisk(folder);
    const auto before = folder.tree();
    const auto setMode = [&](mode_t mode) {
        return row.closed.empty() ? 0 : ::chmod((folder / row.closed).c_str(), mode);
    };
    ASSERT_EQ(setMode(0), 0);
    const auto disk = std::make_shared<testing::RecordingFileManager>(makePosixFileManager());
    const testing::Scene scene;

    if (const auto reason = row.during([&] { scan(row, scene, scene.services(disk), folder / "p"); })) {
        GTEST_SKIP() << *reason;
    }

    EXPECT_EQ(without(folder.path().native(), disk->traffic()), row.traffic);
    ASSERT_EQ(setMode(0700), 0);
    EXPECT_EQ(folder.tree(), before);
}

} // namespace
} // namespace tarvolt
