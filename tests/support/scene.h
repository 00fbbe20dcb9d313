#pragma once

#include "model/mpc_scanner.h"
#include "tests/support/fake_file_manager.h"
#include "tests/support/manual_queue.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvolt::testing {

/// A folder panel that returns what the test sets and keeps the settings it was called with.
class FakeFolderPanel final : public FolderPanel {
public:
    std::optional<std::filesystem::path> runModal(const FolderPanelSettings& settings) override {
        asked.push_back(settings);
        whileOpen();
        return answer;
    }

    void withdraw() override { ++withdrawn; }

    std::optional<std::filesystem::path> answer;
    std::function<void()> whileOpen = [] {};
    std::vector<FolderPanelSettings> asked;
    int withdrawn = 0;
};

/// Everything a scanner depends on, controlled by the test: both queues, the clock, the panel and the disk.
struct Scene {
    Scene() = default;
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    /// A task that has not run holds its scanner, which holds the queue.
    ~Scene() {
        mainQueue->clear();
        background->clear();
    }

    std::shared_ptr<FakeFileManager> disk = std::make_shared<FakeFileManager>();
    std::shared_ptr<ManualQueue> mainQueue = std::make_shared<ManualQueue>();
    std::shared_ptr<ManualQueue> background = std::make_shared<ManualQueue>();
    std::shared_ptr<FakeFolderPanel> panel = std::make_shared<FakeFolderPanel>();

    /// `files` replaces the fake disk.
    Services services(std::shared_ptr<FileManager> files = nullptr) const {
        Services made;
        made.fileManager = files ? std::move(files) : disk;
        made.mainQueue = mainQueue;
        made.backgroundQueue = background;
        made.folderPanel = panel;
        made.now = [queue = mainQueue] { return std::chrono::system_clock::time_point(queue->now()); };
        made.locale = UserLocale{"en_US", "en_US", "en_US", "en_US"};
        return made;
    }

    /// Runs both queues until nothing is due.
    void settle() const {
        while (background->runOne() || mainQueue->runOne()) {
        }
    }
};

inline std::vector<std::string> messages(const MPCScanner& scanner) {
    std::vector<std::string> lines;
    for (const auto& entry : scanner.logEntries.get()) {
        lines.push_back((entry.isError ? "! " : "") + entry.message);
    }
    return lines;
}

inline std::vector<std::string> names(const std::vector<MPCProject>& projects) {
    std::vector<std::string> list;
    for (const auto& project : projects) {
        list.push_back(project.baseName());
    }
    return list;
}

} // namespace tarvolt::testing
