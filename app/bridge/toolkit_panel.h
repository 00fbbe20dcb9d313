#pragma once

#include "model/folder_panel.h"

#include <QElapsedTimer>
#include <QFileDialog>

class QWindow;

namespace tarvolt {

/// The toolkit's own folder panel: it chooses and does nothing else. It is not modal, for a modal panel would keep the
/// window's close box from working. It marks what is selected as the palette of `window`, a Quick window, does.
class ToolkitPanel final : public QFileDialog {
public:
    ToolkitPanel(const FolderPanelSettings& settings, QWindow* window);

    /// The folder chosen; none before the panel is accepted.
    std::optional<std::filesystem::path> folder() const;

    /// Refuses what is no folder, without the toolkit's modal message, and a second press of what opened the panel.
    void accept() override;

private:
    void takeAwayWhatChanges();
    void layOut();
    void showLine(const QString& message);
    void colour(QWindow* window);

    QElapsedTimer opened_;
};

} // namespace tarvolt
