#pragma once

#include "app/bridge/name_delegate.h"
#include "model/folder_panel.h"

#include <QElapsedTimer>
#include <QFileDialog>

class QAbstractItemView;
class QComboBox;
class QLabel;
class QLineEdit;
class QWindow;

namespace tarvolt {

/// The toolkit's own panel, which can choose one folder and do nothing else. It is not modal, because a modal panel
/// would block the window's close box.
class ToolkitPanel final : public QFileDialog {
public:
    /// Draws names in the fonts that `fontForText` gives for them.
    ToolkitPanel(const FolderPanelSettings& settings, QWindow* window, FontForText fontForText);

    /// The folder chosen; none unless the panel was accepted.
    std::optional<std::filesystem::path> folder() const;

    /// Accepts the folder named in the field, or the one listed if the field is empty. If there is no such folder, the
    /// panel says so and stays open.
    void accept() override;

private:
    QString namedFolder() const;
    void hideButtons();
    void replaceButtons();
    void layOut(const QString& message);
    void colour(QWindow* window);
    void setUpNames(FontForText fontForText);
    void setRefusal(const QString& text);

    QLineEdit* field_;
    QLabel* refusal_;
    QComboBox* lookIn_;
    const QList<QAbstractItemView*> lists_;
    QElapsedTimer pressed_; ///< since the panel was opened or last told to accept
};

} // namespace tarvolt
