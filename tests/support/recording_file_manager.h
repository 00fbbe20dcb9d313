#pragma once

#include "foundation/file_manager.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace tarvolt::testing {

/// Forwards every call to another file manager and records it, in the format of FakeFileManager. Calls may come from
/// any thread.
class RecordingFileManager final : public FileManager {
public:
    explicit RecordingFileManager(std::shared_ptr<FileManager> disk) : disk_(std::move(disk)) {}

    /// Called before each operation with its line of traffic.
    std::function<void(const std::string& line)> onCall;

    const std::vector<std::string>& traffic() const { return traffic_; }

    void contentsOfDirectory(const std::filesystem::path& folder, LinkPolicy links, Sizes sizes,
                             const Visitor& visit) const override {
        note("list " + folder.native());
        disk_->contentsOfDirectory(folder, links, sizes, visit);
    }
    bool fileExists(const std::filesystem::path& path) const override {
        note("exists " + path.native());
        return disk_->fileExists(path);
    }
    std::optional<FileState> state(const std::filesystem::path& path) const override {
        note("state " + path.native());
        return disk_->state(path);
    }
    std::optional<FileContents> contents(const std::filesystem::path& path) const override {
        note("read " + path.native());
        return disk_->contents(path);
    }
    std::optional<FileState> createFile(const std::filesystem::path& path, const ContentsWriter& contents) override {
        note("create " + path.native());
        return disk_->createFile(path, contents);
    }
    void moveItem(const std::filesystem::path& from, const std::filesystem::path& to,
                  const FileIdentity& onlyIf) override {
        note("move " + from.native() + " -> " + to.native());
        disk_->moveItem(from, to, onlyIf);
    }
    void removeItem(const std::filesystem::path& path, const FileState& onlyIf) override {
        note("remove " + path.native());
        disk_->removeItem(path, onlyIf);
    }

private:
    void note(const std::string& line) const {
        {
            const std::lock_guard lock(mutex_);
            traffic_.push_back(line);
        }
        if (onCall) {
            onCall(line);
        }
    }

    std::shared_ptr<FileManager> disk_;
    mutable std::mutex mutex_;
    mutable std::vector<std::string> traffic_;
};

} // namespace tarvolt::testing
