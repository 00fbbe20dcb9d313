#pragma once

#include "app/bridge/name_delegate.h"
#include "model/folder_panel.h"

#include <QEventLoop>
#include <QPointer>
#include <QWindow>

namespace tarvolt {

/// The folder panel of the desktop's portal, or the toolkit's own if there is no working portal. Neither makes this
/// process store anything. The window still takes input while a panel is open, so the caller has to cover it.
class QtFolderPanel final : public FolderPanel {
public:
    /// `fontForText` is for the names in the toolkit's panel.
    explicit QtFolderPanel(FontForText fontForText) : fontForText_(fontForText) {}

    /// Keeps the toolkit's panel from writing to the user's settings, and the desktop's theme from opening panels and
    /// messages of its own in this process. Call it before the application object is created.
    static void keepNothing();

    /// The window that the panel belongs to.
    void setWindow(QWindow* window) { window_ = window; }

    std::optional<std::filesystem::path> runModal(const FolderPanelSettings& settings) override;
    void withdraw() override;

private:
    const FontForText fontForText_;
    QPointer<QWindow> window_;
    QPointer<QEventLoop> waiting_;
};

} // namespace tarvolt
