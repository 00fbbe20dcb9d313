#include "model/mpc_scanner.h"

#include "model/folder_scan.h"

#include <string>
#include <utility>

namespace tarvolt {
namespace {

FolderPanelSettings projectsFolderPanel() {
    FolderPanelSettings settings;
    settings.canChooseDirectories = true;
    settings.canChooseFiles = false;
    settings.allowsMultipleSelection = false;
    settings.message = "Select the folder containing your MPC projects";
    settings.prompt = "Select Folder";
    return settings;
}

std::string scanErrorText(const FileError& error) {
    const auto name = error.path().filename().empty() ? error.path() : error.path().filename();
    return "Scan error: The folder \"" + name.string() + "\" could not be read: " + error.localizedDescription();
}

/// The background half of a scan: lists, measures and sorts, and logs what it found or why it could not look.
MPCScanner::Projects findProjects(MPCScanner& scanner, const std::filesystem::path& folder) {
    const Services& services = scanner.services();
    FolderListing listing;
    try {
        listing = listFolder(*services.fileManager, folder);
    } catch (const FileError& error) {
        scanner.log(scanErrorText(error), true);
        return {};
    }
    scanner.log("Found " + std::to_string(listing.projectFiles.size()) + " .xpj file(s) and " +
                    std::to_string(listing.dataFolderNames.size()) + " data folder(s)",
                false);
    auto projects = measureProjects(*services.fileManager, folder, listing, services.makeUUID);
    sortByName(projects, services.locale.collate);
    return projects;
}

} // namespace

std::shared_ptr<MPCScanner> MPCScanner::create(Services services) {
    return std::make_shared<MPCScanner>(Passkey{}, std::move(services));
}

MPCScanner::MPCScanner(Passkey, Services services) : isScanning(false), services_(std::move(services)) {}

void MPCScanner::log(std::string message, bool isError) {
    services_.mainQueue->async([self = shared_from_this(), message = std::move(message), isError]() mutable {
        LogEntry entry{self->services_.makeUUID(), self->services_.now(), std::move(message), isError};
        self->logEntries.change([&](LogEntries& entries) { entries.push_front(std::move(entry)); });
    });
}

void MPCScanner::selectFolder() {
    // The panel runs an event loop of its own, in which the last other holder of this scanner may let it go.
    const auto self = shared_from_this();
    auto chosen = services_.folderPanel->runModal(projectsFolderPanel());
    if (!chosen) {
        return;
    }
    folderURL.set(std::move(chosen));
    scan();
}

void MPCScanner::scan() {
    if (!folderURL.get()) {
        return;
    }
    isScanning.set(true);
    projects.set({});
    services_.backgroundQueue->async([weak = weak_from_this(), folder = *folderURL.get()] {
        auto self = weak.lock();
        if (!self) {
            return;
        }
        auto found = findProjects(*self, folder);
        const auto mainQueue = self->services_.mainQueue;
        // The scanner moves on to the main thread, so that this one can never be the last to hold it.
        mainQueue->async([self = std::move(self), found = std::move(found)]() mutable {
            const auto count = found.size();
            self->projects.set(std::move(found));
            self->isScanning.set(false);
            self->log("Scan complete: " + std::to_string(count) + " project(s)", false);
        });
    });
}

} // namespace tarvolt
