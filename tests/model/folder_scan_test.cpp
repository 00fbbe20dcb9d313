#include "model/folder_scan.h"

#include "model/mpc_scanner.h"
#include "tests/support/call_faults.h"
#include "tests/support/recording_file_manager.h"
#include "tests/support/scene.h"

#include <gtest/gtest.h>

#include <sys/syscall.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <new>
#include <semaphore>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace tarvolt {
namespace {

using testing::messages;
using testing::names;
using testing::Scene;
using Lines = std::vector<std::string>;

class FolderScan : public ::testing::Test {
protected:
    FolderScan() { disk.addFolder("/p"); }

    /// One scan of /p from its call to its end.
    const std::vector<MPCProject>& scan() {
        scanner->folderURL.set("/p");
        scanner->scan();
        scene.settle();
        return scanner->projects.get();
    }

    Scene scene;
    testing::FakeFileManager& disk = *scene.disk;
    std::shared_ptr<MPCScanner> scanner = MPCScanner::create(scene.services());
};

TEST_F(FolderScan, DoesNothingWithoutAFolder) {
    int changes = 0;
    const auto a = scanner->projects.observe([&] { ++changes; });
    const auto b = scanner->isScanning.observe([&] { ++changes; });
    scanner->scan();
    EXPECT_EQ(scene.background->pending(), 0U);
    scene.settle();
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(messages(*scanner).empty());
}

TEST_F(FolderScan, MeasuresTheDataFolderOneLevelDeepAndAddsTheProjectFile) {
    disk.addFile("/p/Song.xpj", 500);
    disk.addFolder("/p/Song_[ProjectData]");
    disk.addFile("/p/Song_[ProjectData]/a.wav", 10);
    disk.addFile("/p/Song_[ProjectData]/b.wav", 10);
    disk.addFolder("/p/Song_[ProjectData]/more");
    disk.addFile("/p/Song_[ProjectData]/more/c.wav", 1000);
    ASSERT_EQ(scan().size(), 1U);
    const auto& song = scanner->projects.get().front();
    EXPECT_EQ(song.baseName(), "Song");
    EXPECT_EQ(song.xpjURL(), "/p/Song.xpj");
    EXPECT_EQ(song.dataFolderURL(), "/p/Song_[ProjectData]");
    EXPECT_EQ(song.fileCount(), 3);
    EXPECT_EQ(song.totalSize(), 520);
}

TEST_F(FolderScan, MatchesTheExtensionInAnyCaseButTheFolderNameExactly) {
    disk.addFile("/p/Loop.XPJ", 7);
    disk.addFolder("/p/loop_[ProjectData]");
    disk.addFile("/p/Beat.xPj", 7);
    disk.addFolder("/p/Beat_[ProjectData]");
    ASSERT_EQ(names(scan()), (Lines{"Beat", "Loop"}));
    EXPECT_TRUE(scanner->projects.get()[0].dataFolderURL().has_value());
    EXPECT_FALSE(scanner->projects.get()[1].dataFolderURL().has_value());
}

TEST_F(FolderScan, GivesAProjectWithoutADataFolderTheSizeOfItsFile) {
    disk.addFile("/p/Song.xpj", 123);
    const auto& song = scan().front();
    EXPECT_FALSE(song.dataFolderURL().has_value());
    EXPECT_EQ(song.fileCount(), 0);
    EXPECT_EQ(song.totalSize(), 123);
}

TEST_F(FolderScan, CountsADataFolderThatHasNoProject) {
    disk.addFolder("/p/Old_[ProjectData]");
    EXPECT_TRUE(scan().empty());
    EXPECT_EQ(messages(*scanner), (Lines{"Scan complete: 0 project(s)", "Found 0 .xpj file(s) and 1 data folder(s)"}));
}

TEST_F(FolderScan, CountsEveryFolderWithTheMarkAnywhereInItsName) {
    disk.addFolder("/p/[ProjectData] backup");
    disk.addFolder("/p/a_[projectdata]");
    disk.addFile("/p/file_[ProjectData]", 1);
    scan();
    EXPECT_EQ(messages(*scanner).back(), "Found 0 .xpj file(s) and 1 data folder(s)");
}

TEST_F(FolderScan, LeavesHiddenEntriesOutEverywhere) {
    disk.addFile("/p/.Hidden.xpj", 5);
    disk.addFolder("/p/.Hidden_[ProjectData]");
    disk.addFile("/p/Song.xpj", 5);
    disk.addFolder("/p/Song_[ProjectData]");
    disk.addFile("/p/Song_[ProjectData]/.cache", 1000);
    ASSERT_EQ(names(scan()), (Lines{"Song"}));
    EXPECT_EQ(scanner->projects.get().front().fileCount(), 0);
    EXPECT_EQ(scanner->projects.get().front().totalSize(), 5);
    EXPECT_EQ(messages(*scanner).back(), "Found 1 .xpj file(s) and 1 data folder(s)");
}

TEST_F(FolderScan, IgnoresCaseWhenSortingAndKeepsTheListingOrderOfEqualNames) {
    disk.addFile("/p/beta.xpj");
    disk.addFile("/p/Alpha.xpj");
    disk.addFile("/p/alpha.xpj");
    EXPECT_EQ(names(scan()), (Lines{"Alpha", "alpha", "beta"}));
}

// An unstable sort keeps the order of a few equal names by chance.
TEST_F(FolderScan, KeepsTheListingOrderOfHundredsOfEqualNames) {
    Lines listed;
    for (unsigned cases = 0; cases < 256; ++cases) {
        std::string name = "abcdefgh";
        for (unsigned letter = 0; letter < name.size(); ++letter) {
            if ((cases * 167 >> letter & 1U) != 0) {
                name[letter] = static_cast<char>(name[letter] - 'a' + 'A');
            }
        }
        disk.addFile("/p/" + name + ".xpj");
        listed.push_back(std::move(name));
    }
    EXPECT_EQ(names(scan()), listed);
}

TEST_F(FolderScan, KeepsTheListingOrderOfEqualNamesTheOtherWayRoundToo) {
    disk.addFile("/p/beta.xpj");
    disk.addFile("/p/alpha.xpj");
    disk.addFile("/p/Alpha.xpj");
    EXPECT_EQ(names(scan()), (Lines{"alpha", "Alpha", "beta"}));
}

TEST_F(FolderScan, SortsByTheCollationLocaleWhateverTheOtherCategoriesAre) {
    auto services = scene.services();
    services.locale = UserLocale{"sv_SE", "de_DE", "de_DE", "de_DE"};
    scanner = MPCScanner::create(std::move(services));
    disk.addFile("/p/\u00f6l.xpj");
    disk.addFile("/p/zug.xpj");
    EXPECT_EQ(names(scan()), (Lines{"zug", "\u00f6l"}));
}

TEST_F(FolderScan, LogsTheEndAfterWhatItFoundInAnEmptyFolder) {
    scan();
    EXPECT_EQ(messages(*scanner), (Lines{"Scan complete: 0 project(s)", "Found 0 .xpj file(s) and 0 data folder(s)"}));
}

TEST_F(FolderScan, LogsCountsWithoutGroupingInEveryLocale) {
    auto services = scene.services();
    services.locale = UserLocale{"ar_EG", "ar_EG", "ar_EG", "ar_EG"};
    scanner = MPCScanner::create(std::move(services));
    for (int i = 0; i < 1234; ++i) {
        disk.addFile("/p/" + std::to_string(i) + ".xpj");
    }
    scan();
    EXPECT_EQ(messages(*scanner),
              (Lines{"Scan complete: 1234 project(s)", "Found 1234 .xpj file(s) and 0 data folder(s)"}));
}

TEST_F(FolderScan, CountsNothingInADataFolderWhoseListingFailsHalfway) {
    disk.addFile("/p/Song.xpj", 5);
    auto& folder = disk.addFolder("/p/Song_[ProjectData]");
    disk.addFile("/p/Song_[ProjectData]/a.wav", 100);
    disk.addFile("/p/Song_[ProjectData]/b.wav", 100);
    folder.listError = EIO;
    folder.listErrorAfter = 1;
    EXPECT_EQ(scan().front().fileCount(), 0);
    EXPECT_EQ(scanner->projects.get().front().totalSize(), 5);
}

TEST_F(FolderScan, ListsAFolderNamedLikeAProjectFile) {
    disk.addFolder("/p/Odd.xpj");
    const auto& odd = scan().front();
    EXPECT_EQ(odd.baseName(), "Odd");
    EXPECT_EQ(odd.totalSize(), 0);
}

TEST_F(FolderScan, CountsAFolderNamedLikeBothTwice) {
    disk.addFolder("/p/Odd_[ProjectData].xpj");
    EXPECT_EQ(names(scan()), (Lines{"Odd_[ProjectData]"}));
    EXPECT_EQ(messages(*scanner).back(), "Found 1 .xpj file(s) and 1 data folder(s)");
}

TEST_F(FolderScan, IgnoresALinkNamedLikeADataFolder) {
    disk.addFile("/p/Song.xpj", 5);
    disk.addFolder("/elsewhere");
    disk.addLink("/p/Song_[ProjectData]", "/elsewhere");
    EXPECT_FALSE(scan().front().dataFolderURL().has_value());
}

TEST_F(FolderScan, ShowsAnEmptyListFromItsStartToItsEnd) {
    disk.addFile("/p/Song.xpj", 5);
    scan();
    Lines changes;
    const auto a = scanner->projects.observe([&] { changes.emplace_back("projects"); });
    const auto b = scanner->isScanning.observe([&] { changes.emplace_back("isScanning"); });
    const auto c = scanner->logEntries.observe([&] { changes.emplace_back("log"); });
    scanner->scan();
    EXPECT_EQ(changes, (Lines{"isScanning", "projects"}));
    EXPECT_TRUE(scanner->isScanning.get());
    EXPECT_TRUE(scanner->projects.get().empty());
    scene.background->drain();
    EXPECT_TRUE(scanner->isScanning.get());
    scene.mainQueue->drain();
    EXPECT_EQ(changes, (Lines{"isScanning", "projects", "log", "projects", "isScanning", "log"}));
    EXPECT_FALSE(scanner->isScanning.get());
}

TEST_F(FolderScan, PublishesListAndFlagInOneTaskOnTheMainThread) {
    disk.addFile("/p/Song.xpj", 5);
    scanner->folderURL.set("/p");
    scanner->scan();
    scene.background->drain();
    scene.mainQueue->runOne(); // the line with the counts
    EXPECT_TRUE(scanner->isScanning.get());
    scene.mainQueue->runOne();
    EXPECT_FALSE(scanner->isScanning.get());
    EXPECT_EQ(scanner->projects.get().size(), 1U);
}

TEST_F(FolderScan, ScansTheFolderThatWasChosenAtTheCall) {
    disk.addFile("/p/Song.xpj", 5);
    disk.addFolder("/q");
    scanner->folderURL.set("/p");
    scanner->scan();
    scanner->folderURL.set("/q");
    scene.settle();
    EXPECT_EQ(names(scanner->projects.get()), (Lines{"Song"}));
}

TEST_F(FolderScan, ShowsTheResultOfTheScanThatEndsLastWhenTwoOverlap) {
    disk.addFile("/p/First.xpj", 5);
    disk.addFolder("/q");
    disk.addFile("/q/Second.xpj", 5);
    scanner->folderURL.set("/p");
    scanner->scan();
    scanner->folderURL.set("/q");
    scanner->scan();
    EXPECT_EQ(scene.background->pending(), 2U);
    scene.background->runOne();
    scene.mainQueue->drain();
    EXPECT_FALSE(scanner->isScanning.get()) << "the first end clears the flag";
    EXPECT_EQ(names(scanner->projects.get()), (Lines{"First"}));
    scene.settle();
    EXPECT_EQ(names(scanner->projects.get()), (Lines{"Second"}));
    EXPECT_EQ(messages(*scanner).size(), 4U);
}

TEST_F(FolderScan, ReportsItsOwnEndWhenTwoOverlap) {
    disk.addFile("/p/Song.xpj");
    scanner->folderURL.set("/p");
    Lines ends;
    const auto tell = [&](const std::string& name) {
        return [&, name] { ends.push_back(name + (scanner->projects.get().empty() ? "" : " listed")); };
    };
    scanner->scan(tell("first"));
    scanner->scan(tell("second"));
    scene.background->runOne();
    EXPECT_EQ(ends, Lines{}) << "not before it is published";
    scene.mainQueue->drain();
    EXPECT_EQ(ends, Lines{"first listed"});
    scene.settle();
    EXPECT_EQ(ends, (Lines{"first listed", "second listed"}));
}

TEST_F(FolderScan, KeepsTheScannerAliveFromItsBackgroundStepToItsEnd) {
    const std::weak_ptr<MPCScanner> weak = scanner;
    scanner->folderURL.set("/p");
    scanner->scan();
    disk.onCall = [&](const std::string&) { scanner.reset(); };
    scene.background->drain();
    EXPECT_FALSE(weak.expired());
    scene.settle();
    EXPECT_TRUE(weak.expired());
}

/// A main thread that runs each task before the posting thread continues.
class QuickQueue final : public DispatchQueue {
public:
    void async(Task task) override {
        task();
        task = nullptr;
        if (afterTask) {
            afterTask();
        }
    }
    void asyncAfter(std::chrono::milliseconds, Task task) override { async(std::move(task)); }

    std::function<void()> afterTask;
};

TEST_F(FolderScan, ReleasesTheScannerOnTheMainThread) {
    const auto quick = std::make_shared<QuickQueue>();
    auto services = scene.services();
    services.mainQueue = quick;
    scanner = MPCScanner::create(std::move(services));
    const std::weak_ptr<MPCScanner> weak = scanner;
    scanner->folderURL.set("/p");
    scanner->scan();
    disk.onCall = [&](const std::string&) { scanner.reset(); };
    bool ended = false;
    quick->afterTask = [&] { ended = weak.expired(); };
    scene.background->drain();
    EXPECT_TRUE(ended);
}

/// A queue for which the system has no more threads.
class ExhaustedQueue final : public DispatchQueue {
public:
    explicit ExhaustedQueue(std::error_code error) : error_(error) {}
    void async(Task) override { throw std::system_error(error_); }
    void asyncAfter(std::chrono::milliseconds, Task task) override { async(std::move(task)); }

private:
    std::error_code error_;
};

/// Error messages in a Western European single-byte character set.
class OldLetters final : public std::error_category {
public:
    const char* name() const noexcept override { return "old letters"; }
    std::string message(int) const override { return "plus de m\xE9moire"; }
};

TEST_F(FolderScan, EndsWithAnErrorLineWhenThereIsNoThread) {
    auto services = scene.services();
    services.backgroundQueue = std::make_shared<ExhaustedQueue>(std::error_code(EAGAIN, std::generic_category()));
    scanner = MPCScanner::create(std::move(services));
    scan();
    EXPECT_FALSE(scanner->isScanning.get());
    EXPECT_EQ(messages(*scanner),
              (Lines{"Scan complete: 0 project(s)", "! Scan error: Resource temporarily unavailable"}));
}

TEST_F(FolderScan, DescribesTheMissingThreadInUtf8WhateverTheSystemUses) {
    const OldLetters letters;
    auto services = scene.services();
    services.backgroundQueue = std::make_shared<ExhaustedQueue>(std::error_code(EAGAIN, letters));
    scanner = MPCScanner::create(std::move(services));
    scan();
    EXPECT_EQ(messages(*scanner).back(), "! Scan error: plus de m\uFFFDmoire");
}

TEST_F(FolderScan, EndsWithAnErrorLineWhenMemoryRunsOut) {
    disk.addFile("/p/Song.xpj");
    disk.onCall = [](const std::string&) { throw std::bad_alloc(); };
    scan();
    EXPECT_FALSE(scanner->isScanning.get());
    EXPECT_TRUE(scanner->projects.get().empty());
    EXPECT_EQ(messages(*scanner), (Lines{"Scan complete: 0 project(s)", "! Scan error: std::bad_alloc"}));
}

class FolderScanOfMany : public FolderScan {
protected:
    FolderScanOfMany() {
        for (int i = 0; i < many; ++i) {
            const auto name = "/p/" + std::to_string(1000 + i);
            disk.addFile(name + ".xpj", i);
            disk.addFolder(name + "_[ProjectData]");
            disk.addFile(name + "_[ProjectData]/a.wav", std::int64_t{1000} * i);
        }
    }

    static void expectAll(const std::vector<MPCProject>& projects) {
        ASSERT_EQ(projects.size(), static_cast<std::size_t>(many));
        for (int i = 0; i < many; ++i) {
            const auto& project = projects[static_cast<std::size_t>(i)];
            EXPECT_EQ(project.baseName(), std::to_string(1000 + i));
            EXPECT_EQ(project.fileCount(), 1);
            EXPECT_EQ(project.totalSize(), 1001 * i);
        }
    }

    static constexpr int many = 300;
};

TEST_F(FolderScanOfMany, MeasuresTheSameOnSeveralThreads) {
    expectAll(scan());
}

TEST_F(FolderScanOfMany, EndsWithAnErrorLineWhicheverThreadRunsOutOfMemory) {
    disk.onCall = [](const std::string& line) {
        if (line.ends_with("_[ProjectData]")) {
            throw std::bad_alloc();
        }
    };
    EXPECT_TRUE(scan().empty());
    EXPECT_EQ(messages(*scanner), (Lines{"Scan complete: 0 project(s)", "! Scan error: std::bad_alloc",
                                         "Found 300 .xpj file(s) and 300 data folder(s)"}));
}

TEST_F(FolderScanOfMany, MeasuresAllOnOneThreadWhenThereAreNoMore) {
    if (const auto reason = testing::withCallsAnswered({SYS_clone3, SYS_clone}, testing::refuseWith(EAGAIN),
                                                       [&] { expectAll(scan()); })) {
        GTEST_SKIP() << *reason;
    }
}

TEST_F(FolderScan, ListsTwoDataFoldersAtTheSameTime) {
    for (const std::string name : {"/p/a", "/p/b"}) {
        disk.addFile(name + ".xpj");
        disk.addFolder(name + "_[ProjectData]");
    }
    testing::RecordingFileManager slowDisk(scene.disk);
    std::atomic<int> begun = 0;
    std::counting_semaphore bothBegun(0);
    slowDisk.onCall = [&](const std::string& line) {
        if (line.ends_with("_[ProjectData]") && line.starts_with("list")) {
            if (++begun == 2) {
                bothBegun.release(2);
            }
            EXPECT_TRUE(bothBegun.try_acquire_for(std::chrono::seconds(10)));
        }
    };
    measureProjects(slowDisk, "/p", listFolder(slowDisk, "/p"), "");
    EXPECT_EQ(begun, 2);
}

TEST_F(FolderScan, NamesTheRootFolderByItsPathInAnError) {
    disk.fail("list", EIO);
    scanner->folderURL.set("/");
    scanner->scan();
    scene.settle();
    EXPECT_EQ(testing::messages(*scanner).back(),
              "! Scan error: The folder \"/\" could not be read: Input/output error");
}

using FolderScanDeathTest = FolderScan;

TEST_F(FolderScanDeathTest, EndsTheProcessWhenTheSumOfADataFolderIsTooLarge) {
    disk.addFile("/p/Song.xpj", 5);
    disk.addFolder("/p/Song_[ProjectData]");
    disk.addFile("/p/Song_[ProjectData]/a", std::numeric_limits<std::int64_t>::max());
    disk.addFile("/p/Song_[ProjectData]/b", 1);
    EXPECT_DEATH(scan(), "does not fit");
}

TEST_F(FolderScanDeathTest, EndsTheProcessWhenTheProjectFileMakesTheSumTooLarge) {
    disk.addFile("/p/Song.xpj", 1);
    disk.addFolder("/p/Song_[ProjectData]");
    disk.addFile("/p/Song_[ProjectData]/a", std::numeric_limits<std::int64_t>::max());
    EXPECT_DEATH(scan(), "does not fit");
}

TEST_F(FolderScan, AddsSizesUpToTheLargestSum) {
    disk.addFile("/p/Song.xpj", 1);
    disk.addFolder("/p/Song_[ProjectData]");
    disk.addFile("/p/Song_[ProjectData]/a", std::numeric_limits<std::int64_t>::max() - 1);
    EXPECT_EQ(scan().front().totalSize(), std::numeric_limits<std::int64_t>::max());
}

} // namespace
} // namespace tarvolt
