#pragma once

#include "model/folder_panel.h"

#include <QPointer>
#include <QWindow>

namespace tarvolt {

/// The folder panel of the desktop, or the toolkit's own where the desktop has none.
class QtFolderPanel final : public FolderPanel {
public:
    /// Keeps the toolkit's panel from writing its history and places to the user's settings. Before the first panel.
    static void keepNothing();

    /// The window that the panel stands over.
    void setWindow(QWindow* window) { window_ = window; }

    std::optional<std::filesystem::path> runModal(const FolderPanelSettings& settings) override;

private:
    QPointer<QWindow> window_;
};

} // namespace tarvolt
