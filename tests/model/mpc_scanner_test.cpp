#include "model/mpc_scanner.h"

#include "tests/support/scene.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

namespace tarvolt {
namespace {

using namespace std::chrono_literals;
using testing::messages;
using testing::names;
using testing::Scene;
using Lines = std::vector<std::string>;

static_assert(std::is_final_v<MPCScanner>);
static_assert(!std::is_copy_assignable_v<MPCScanner::LogEntry>);

TEST(MPCScanner, StartsEmptyAndTouchesNoFile) {
    const Scene scene;
    const auto scanner = MPCScanner::create(scene.services());
    scene.settle();
    EXPECT_TRUE(scanner->projects.get().empty());
    EXPECT_FALSE(scanner->folderURL.get().has_value());
    EXPECT_FALSE(scanner->isScanning.get());
    EXPECT_TRUE(scanner->logEntries.get().empty());
    EXPECT_TRUE(scene.disk->traffic().empty());
}

TEST(ActivityLog, PutsTheNewestLineFirst) {
    const Scene scene;
    const auto scanner = MPCScanner::create(scene.services());
    std::thread([&] {
        scanner->log("a", false);
        scanner->log("b", true);
    }).join();
    EXPECT_TRUE(scanner->logEntries.get().empty());
    scanner->log("c", false);
    scene.settle();
    const auto& entries = scanner->logEntries.get();
    ASSERT_EQ(messages(*scanner), (Lines{"c", "! b", "a"}));
    EXPECT_TRUE(entries[1].isError);
    EXPECT_FALSE(entries[2].isError);
    EXPECT_NE(entries[0].id, entries[1].id);
}

TEST(ActivityLog, TakesTheTimeOfTheInsertionRatherThanOfTheCall) {
    const Scene scene;
    auto services = scene.services();
    std::chrono::system_clock::time_point clock{};
    services.now = [&] { return clock; };
    const auto scanner = MPCScanner::create(std::move(services));
    scanner->log("late", false);
    clock += 5s;
    scene.settle();
    EXPECT_EQ(scanner->logEntries.get().front().timestamp.time_since_epoch(), 5s);
}

TEST(ActivityLog, AddsALineFromTheMainThreadOnlyAfterItsCurrentWork) {
    const Scene scene;
    const auto scanner = MPCScanner::create(scene.services());
    std::size_t during = 99;
    scene.mainQueue->async([&] {
        scanner->log("x", false);
        during = scanner->logEntries.get().size();
    });
    scene.settle();
    EXPECT_EQ(during, 0U);
    EXPECT_EQ(scanner->logEntries.get().size(), 1U);
}

TEST(ActivityLog, ChangesOncePerLine) {
    const Scene scene;
    const auto scanner = MPCScanner::create(scene.services());
    std::vector<std::size_t> before;
    const auto watch = scanner->logEntries.observe([&] { before.push_back(scanner->logEntries.get().size()); });
    scanner->log("a", false);
    scanner->log("b", false);
    scene.settle();
    EXPECT_EQ(before, (std::vector<std::size_t>{0, 1}));
}

TEST(ActivityLog, KeepsThousandsOfLines) {
    const Scene scene;
    const auto scanner = MPCScanner::create(scene.services());
    for (int i = 0; i < 20000; ++i) {
        scanner->log(std::to_string(i), false);
    }
    scene.settle();
    ASSERT_EQ(scanner->logEntries.get().size(), 20000U);
    EXPECT_EQ(scanner->logEntries.get().front().message, "19999");
    EXPECT_EQ(scanner->logEntries.get().back().message, "0");
}

TEST(ActivityLog, KeepsEachOfThousandsOfEqualLines) {
    const Scene scene;
    const auto scanner = MPCScanner::create(scene.services());
    for (int i = 0; i < 5000; ++i) {
        scanner->log("again", false);
    }
    scene.settle();
    EXPECT_EQ(messages(*scanner), Lines(5000, "again"));
}

TEST(ActivityLog, KeepsTheOrderOfEachThreadWhenSeveralWriteAtOnce) {
    const Scene scene;
    const auto scanner = MPCScanner::create(scene.services());
    std::vector<std::thread> writers;
    for (int writer = 0; writer < 4; ++writer) {
        writers.emplace_back([&, writer] {
            for (int line = 0; line < 500; ++line) {
                scanner->log(std::to_string(writer) + " " + std::to_string(line), false);
            }
        });
    }
    for (auto& writer : writers) {
        writer.join();
    }
    scene.settle();
    ASSERT_EQ(scanner->logEntries.get().size(), 2000U);
    std::map<char, int> next;
    for (auto at = scanner->logEntries.get().rbegin(); at != scanner->logEntries.get().rend(); ++at) {
        const char writer = at->message.front();
        EXPECT_EQ(at->message, std::string{writer} + " " + std::to_string(next[writer]++));
    }
}

TEST(ActivityLog, KeepsTheScannerAliveUntilTheLineIsAdded) {
    const Scene scene;
    auto scanner = MPCScanner::create(scene.services());
    const std::weak_ptr<MPCScanner> weak = scanner;
    scanner->log("last words", false);
    scanner.reset();
    EXPECT_FALSE(weak.expired());
    scene.settle();
    EXPECT_TRUE(weak.expired());
}

/// A scanner with a chosen folder that has one project.
std::shared_ptr<MPCScanner> scannerOfASong(const Scene& scene) {
    scene.disk->addFolder("/p");
    scene.disk->addFile("/p/Song.xpj", "x");
    scene.panel->answer = "/p";
    auto scanner = MPCScanner::create(scene.services());
    scanner->selectFolder();
    scene.settle();
    return scanner;
}

TEST(SelectFolder, AsksForOneFolderWithItsMessageAndButton) {
    const Scene scene;
    MPCScanner::create(scene.services())->selectFolder();
    ASSERT_EQ(scene.panel->asked.size(), 1U);
    const auto& asked = scene.panel->asked.front();
    EXPECT_TRUE(asked.canChooseDirectories);
    EXPECT_FALSE(asked.canChooseFiles);
    EXPECT_FALSE(asked.allowsMultipleSelection);
    EXPECT_EQ(asked.message, "Select the folder containing your MPC projects");
    EXPECT_EQ(asked.prompt, "Select Folder");
}

TEST(SelectFolder, ChangesNothingWhenItIsCancelled) {
    const Scene scene;
    const auto scanner = scannerOfASong(scene);
    const auto projects = scanner->projects.get();
    const auto log = messages(*scanner);
    scene.panel->answer.reset();
    int changes = 0;
    const auto a = scanner->folderURL.observe([&] { ++changes; });
    const auto b = scanner->projects.observe([&] { ++changes; });
    const auto c = scanner->isScanning.observe([&] { ++changes; });
    scanner->selectFolder();
    scene.settle();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(*scanner->folderURL.get(), "/p");
    EXPECT_EQ(scanner->projects.get(), projects);
    EXPECT_EQ(messages(*scanner), log);
}

TEST(SelectFolder, SetsTheFolderAndThenScans) {
    const Scene scene;
    scene.disk->addFolder("/p");
    scene.panel->answer = "/p";
    const auto scanner = MPCScanner::create(scene.services());
    Lines changes;
    const auto a = scanner->folderURL.observe([&] { changes.emplace_back("folderURL"); });
    const auto b = scanner->projects.observe([&] { changes.emplace_back("projects"); });
    const auto c = scanner->isScanning.observe([&] { changes.emplace_back("isScanning"); });
    scanner->selectFolder();
    EXPECT_EQ(changes, (Lines{"folderURL", "isScanning", "projects"}));
}

/// While this panel is open, the last reference to the scanner is released.
class ClosingPanel final : public FolderPanel {
public:
    std::optional<std::filesystem::path> runModal(const FolderPanelSettings&) override {
        const std::weak_ptr<MPCScanner> weak = scanner;
        scanner.reset();
        outlived = !weak.expired();
        return "/p";
    }

    void withdraw() override {}

    std::shared_ptr<MPCScanner> scanner;
    bool outlived = false;
};

TEST(SelectFolder, KeepsTheScannerAliveWhileThePanelIsOpen) {
    const Scene scene;
    const auto panel = std::make_shared<ClosingPanel>();
    auto services = scene.services();
    services.folderPanel = panel;
    panel->scanner = MPCScanner::create(std::move(services));
    panel->scanner->selectFolder();
    EXPECT_TRUE(panel->outlived);
    scene.settle();
    EXPECT_TRUE(scene.disk->traffic().empty());
}

TEST(SelectFolder, GivesEveryProjectANewIdentityWhenTheSameFolderIsChosenAgain) {
    const Scene scene;
    const auto scanner = scannerOfASong(scene);
    const auto before = scanner->projects.get();
    scanner->selectFolder();
    scene.settle();
    EXPECT_EQ(names(scanner->projects.get()), names(before));
    EXPECT_NE(scanner->projects.get(), before);
}

} // namespace
} // namespace tarvolt
