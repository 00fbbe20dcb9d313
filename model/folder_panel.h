#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tarvolt {

/// How the folder panel is set up.
struct FolderPanelSettings {
    bool canChooseDirectories = false;
    bool canChooseFiles = true;
    bool allowsMultipleSelection = false;
    std::string message; ///< the explanatory line
    std::string prompt;  ///< the confirm button
};

/// Asks the user for one folder.
class FolderPanel {
public:
    FolderPanel() = default;
    FolderPanel(const FolderPanel&) = delete;
    FolderPanel& operator=(const FolderPanel&) = delete;
    virtual ~FolderPanel() = default;

    /// Shows the panel and blocks until it is closed. Absent unless a folder was confirmed. Main thread.
    virtual std::optional<std::filesystem::path> runModal(const FolderPanelSettings& settings) = 0;

    /// Closes the open panel as if it had been cancelled. Main thread.
    virtual void withdraw() = 0;
};

} // namespace tarvolt
