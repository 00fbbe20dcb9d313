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

/// Owns the chosen folder, the projects found in it, the busy flag and the activity log, and tells observers before
/// each change of these four. All four are read and written on the main thread only. Every call but `log` belongs to
/// the main thread.
class MPCScanner final : public std::enable_shared_from_this<MPCScanner> {
    struct Passkey {};

public:
    /// One line of the activity log.
    struct LogEntry {
        LogEntry(std::chrono::system_clock::time_point when, std::string text, bool error)
            : timestamp(when), message(std::move(text)), isError(error) {}

        const UUID id = UUID::random();
        const std::chrono::system_clock::time_point timestamp; ///< when the line was added, not when it was sent
        const std::string message; ///< as shown; UTF-8 except for names, which are bytes as on disk
        const bool isError;
    };

    using Projects = std::vector<MPCProject>;
    using LogEntries = std::deque<LogEntry>;

    /// A scanner with no folder, no projects and an empty log. Touches no file.
    static std::shared_ptr<MPCScanner> create(Services services = processServices());

    MPCScanner(Passkey, Services services);

    Published<Projects> projects;
    Published<std::optional<std::filesystem::path>> folderURL;
    Published<bool> isScanning;
    Published<LogEntries> logEntries; ///< newest first, never shortened

    /// Adds one line to the log by way of the main queue, so that lines stand in the order of the calls whatever
    /// threads they come from. Any thread; returns at once.
    void log(std::string message, bool isError);

    /// Asks for a folder, blocking while the panel is open, and scans the one that was confirmed. Anything else changes
    /// nothing.
    void selectFolder();

    /// Lists the chosen folder on the background queue and publishes the result through the main queue; returns at
    /// once. Without a folder nothing happens. A second scan may run beside the first; each publishes its own result,
    /// and then runs its own `published` on the main thread.
    void scan(Task published = [] {});

    /// Renames one project on disk: file, folder and the references between them. When it returns, every file operation
    /// is done and the success is logged; without a chosen folder it returns and has done nothing. Throws RenameError
    /// (rename/rename_error.h) and nothing else; docs/project-on-disk.md says what the disk then holds. Leaves
    /// `projects` as they are. Never logs a failure.
    void rename(const MPCProject& project, const std::string& newName);

    const Services& services() const { return services_; }

private:
    Services services_;
};

} // namespace tarvolt
