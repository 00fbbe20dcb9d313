#include "app/bridge/qt_folder_panel.h"

#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLayout>
#include <QSettings>

namespace tarvolt {

namespace {

QFileDialog::FileMode fileMode(const FolderPanelSettings& settings) {
    if (!settings.canChooseFiles) {
        return QFileDialog::Directory;
    }
    return settings.allowsMultipleSelection ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

/// The toolkit's own panel has no place for an explanatory line; the desktop's shows it as its title.
void showMessage(QFileDialog& dialog, const QString& message) {
    dialog.setWindowTitle(message);
    if (QLayout* layout = dialog.layout()) {
        auto* line = new QLabel(message, &dialog);
        const int margin = dialog.fontMetrics().height() * 3 / 4;
        line->setContentsMargins(margin, margin, margin, 0);
        line->setTextFormat(Qt::PlainText);
        layout->setMenuBar(line);
    }
}

} // namespace

void QtFolderPanel::keepNothing() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

std::optional<std::filesystem::path> QtFolderPanel::runModal(const FolderPanelSettings& settings) {
    QFileDialog dialog;
    dialog.setFileMode(fileMode(settings));
    dialog.setOption(QFileDialog::ShowDirsOnly, settings.canChooseDirectories && !settings.canChooseFiles);
    dialog.setLabelText(QFileDialog::Accept, QString::fromStdString(settings.prompt));
    showMessage(dialog, QString::fromStdString(settings.message));
    if (window_ != nullptr) {
        dialog.winId();
        dialog.windowHandle()->setTransientParent(window_);
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return std::filesystem::path(QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString());
}

} // namespace tarvolt
