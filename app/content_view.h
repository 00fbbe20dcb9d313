#pragma once

#include "foundation/published.h"
#include "model/mpc_scanner.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvolt {

/// What is shown under the header.
enum class ContentArea { folderPicker, emptyState, projectList };

/// The state of the main view and what follows from it, without a toolkit. Main thread only. Nothing of it is saved.
class ContentView final : public std::enable_shared_from_this<ContentView> {
public:
    static constexpr std::chrono::milliseconds rescanDelay{500};
    static constexpr std::chrono::milliseconds highlightDuration{2000};

    /// A view with a new scanner of its own, kept for the view's life.
    static std::shared_ptr<ContentView> create(Services services);

    const std::shared_ptr<MPCScanner> scanner;
    Published<std::optional<MPCProject>> renamingProject; ///< the sheet is open exactly while present
    Published<std::string> newName;                       ///< the text of the sheet's field
    Published<std::optional<std::string>> errorMessage;   ///< the text of the failure alert
    Published<bool> showError;                            ///< the alert is shown exactly while true
    Published<std::optional<UUID>> successProject;        ///< the project just renamed, for its highlight
    Published<std::string> searchText;                    ///< written by the search field only
    Published<bool> choosesFolder;                        ///< the folder panel is open
    Published<std::optional<std::string>> listedName; ///< the last rename's new name, once its own scan is published

    /// The projects to list: all of them for an empty search text, else those whose name contains it, in their order.
    std::vector<MPCProject> filteredProjects() const;

    ContentArea contentArea() const;

    /// Whether the sheet, the alert or the folder panel is open. Nothing behind it can be pressed then.
    bool isCovered() const;

    /// Whether there are at least six projects, whatever the search text.
    bool showsSearchBar() const;

    /// Whether the preview is shown and the Rename button enabled: `newName` is neither empty nor the project's own.
    bool offersRename(const MPCProject& project) const;

    /// The alert's message: `errorMessage`, or "Unknown error" without one.
    std::string alertMessage() const;

    /// A row's button: fills in the name and opens the sheet.
    void beginRename(const MPCProject& project);

    /// Closes the sheet; the typed name stays in the state.
    void cancelRename();

    /// Renames the project to the trimmed new name. On failure the alert is shown and the sheet stays; on success the
    /// sheet closes, the row is highlighted for `highlightDuration`, and after `rescanDelay` the folder is scanned
    /// again, which sets `listedName`. Returns whether it succeeded.
    bool performRename(const MPCProject& project);

    void dismissAlert();

    /// Whether the folder has a project of this name that the search text keeps out of the list.
    bool searchHides(const std::string& name) const;

private:
    explicit ContentView(Services services) : scanner(MPCScanner::create(std::move(services))) {}

    bool matchesSearch(const std::string& name) const;

    int renames_ = 0; ///< those that went well
};

} // namespace tarvolt
