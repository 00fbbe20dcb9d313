#include "model/mpc_scanner.h"

#include "foundation/localized.h"
#include "foundation/text.h"
#include "model/folder_scan.h"

#include <exception>
#include <string>
#include <utility>

namespace tarvolt {
namespace {

FolderPanelSettings projectsFolderPanel() {
    return {.canChooseDirectories = true,
            .canChooseFiles = false,
            .allowsMultipleSelection = false,
            .message = localized("FolderPanel", "Select the folder containing your MPC projects"),
            .prompt = localized("FolderPanel", "Select Folder")};
}

std::string scanErrorText(const std::exception& failure) {
    const auto* error = dynamic_cast<const FileError*>(&failure);
    if (error == nullptr) {
        return "Scan error: " + displayText(failure.what());
    }
    const auto name = error->path().filename().empty() ? error->path() : error->path().filename();
    return "Scan error: The folder \"" + name.string() + "\" could not be read: " + error->localizedDescription();
}

/// The background half of a scan. A task must not throw, so every failure ends the scan with a line that gives the
/// reason.
MPCScanner::Projects findProjects(MPCScanner& scanner, const std::filesystem::path& folder) {
    const Services& services = scanner.services();
    try {
        const FolderListing listing = listFolder(*services.fileManager, folder);
        scanner.log("Found " + std::to_string(listing.projectFileNames.size()) + " .xpj file(s) and " +
                        std::to_string(listing.dataFolderNames.size()) + " data folder(s)",
                    false);
        return measureProjects(*services.fileManager, folder, listing, services.locale.collate);
    } catch (const std::exception& failure) {
        scanner.log(scanErrorText(failure), true);
        return {};
    }
}

/// Ends a scan on the main thread. The scanner is moved there with the result, so that a background thread never holds
/// the last reference.
void publish(std::shared_ptr<MPCScanner> scanner, MPCScanner::Projects found, Task published) {
    const auto mainQueue = scanner->services().mainQueue;
    mainQueue->async(
        [scanner = std::move(scanner), found = std::move(found), published = std::move(published)]() mutable {
            const auto count = found.size();
            scanner->projects.set(std::move(found));
            scanner->isScanning.set(false);
            scanner->log("Scan complete: " + std::to_string(count) + " project(s)", false);
            published();
        });
}

} // namespace

std::shared_ptr<MPCScanner> MPCScanner::create(Services services) {
    return std::shared_ptr<MPCScanner>(new MPCScanner(std::move(services)));
}

void MPCScanner::log(std::string message, bool isError) {
    services_.mainQueue->async([self = shared_from_this(), message = std::move(message), isError]() mutable {
        self->logEntries.change(
            [&](LogEntries& entries) { entries.emplace_front(self->services_.now(), std::move(message), isError); });
    });
}

void MPCScanner::selectFolder() {
    // The panel runs its own event loop, in which the last other reference to this scanner may be released.
    const auto self = shared_from_this();
    auto chosen = services_.folderPanel->runModal(projectsFolderPanel());
    if (!chosen) {
        return;
    }
    folderURL.set(std::move(chosen));
    scan();
}

void MPCScanner::scan(Task published) {
    if (!folderURL.get()) {
        return;
    }
    isScanning.set(true);
    projects.set({});
    try {
        services_.backgroundQueue->async([weak = weak_from_this(), folder = *folderURL.get(), published] {
            if (auto self = weak.lock()) {
                auto found = findProjects(*self, folder);
                publish(std::move(self), std::move(found), published);
            }
        });
    } catch (const std::exception& failure) {
        // There is no thread for it: the scan ends like one whose folder cannot be read, so that the user can retry.
        log(scanErrorText(failure), true);
        publish(shared_from_this(), {}, std::move(published));
    }
}

} // namespace tarvolt
