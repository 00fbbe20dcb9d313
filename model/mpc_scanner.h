#pragma once

#include "foundation/dispatch_queue.h"
#include "foundation/published.h"
#include "model/mpc_project.h"
#include "model/services.h"

#include <chrono>
#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvolt {

/// Owns the chosen folder, the projects found in it, the busy flag and the activity log. Observers are notified before
/// each change of these four, which are read and written on the main thread only. Every call except `log` must come
/// from the main thread.
class MPCScanner final : public std::enable_shared_from_this<MPCScanner> {
public:
    /// One line of the activity log.
    struct LogEntry {
        LogEntry(std::chrono::system_clock::time_point when, std::string text, bool error)
            : timestamp(when), message(std::move(text)), isError(error) {}

        const UUID id = UUID::random();
        const std::chrono::system_clock::time_point timestamp; ///< when the line was added to the log
        const std::string message; ///< as shown; UTF-8 except for names, which are bytes as on disk
        const bool isError;
    };

    using Projects = std::vector<MPCProject>;
    using LogEntries = std::deque<LogEntry>;

    /// Creates a scanner with no folder, no projects and an empty log. Touches no file.
    static std::shared_ptr<MPCScanner> create(Services services);

    Published<Projects> projects;
    Published<std::optional<std::filesystem::path>> folderURL;
    Published<bool> isScanning;
    Published<LogEntries> logEntries; ///< newest first; never shortened

    /// Adds one line to the log through the main queue, so that the lines are in the order of the calls, whatever
    /// threads they come from. Any thread; returns at once.
    void log(std::string message, bool isError);

    /// Asks the user for a folder and scans the one that was confirmed; otherwise nothing changes. Blocks while the
    /// panel is open.
    void selectFolder();

    /// Scans the chosen folder on the background queue and publishes the result through the main queue; returns at
    /// once. Does nothing without a folder. Scans may overlap: each publishes its own result and then calls its own
    /// `published` on the main thread.
    void scan(Task published = [] {});

    /// Renames one project on disk: its file, its folder and the references between them. When this returns, all file
    /// operations are complete and the success is logged. Does nothing without a chosen folder. Throws only RenameError
    /// (rename/rename_error.h) and logs no failure; docs/project-on-disk.md describes what is then on disk. `projects`
    /// stays as it is.
    void rename(const MPCProject& project, const std::string& newName);

    const Services& services() const { return services_; }

private:
    explicit MPCScanner(Services services) : services_(std::move(services)) {}

    Services services_;
};

} // namespace tarvolt
