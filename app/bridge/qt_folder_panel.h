#pragma once

#include "model/folder_panel.h"

#include <QEventLoop>
#include <QPointer>
#include <QWindow>

namespace tarvolt {

/// The desktop portal's folder panel; the toolkit's own where there is no portal or it does not work. Neither stores
/// anything from this process. The window goes on taking input, so whoever asks has to cover it meanwhile.
class QtFolderPanel final : public FolderPanel {
public:
    /// Keeps the toolkit's panel from writing to the user's settings, and the desktop's theme from bringing panels and
    /// messages of its own into this process. Before the application object is made.
    static void keepNothing();

    /// The window that the panel stands over.
    void setWindow(QWindow* window) { window_ = window; }

    std::optional<std::filesystem::path> runModal(const FolderPanelSettings& settings) override;
    void withdraw() override;

private:
    QPointer<QWindow> window_;
    QPointer<QEventLoop> waiting_;
};

} // namespace tarvolt
