#include "app/bridge/qt_folder_panel.h"

#include "app/bridge/portal_panel.h"
#include "app/bridge/toolkit_panel.h"

#include <QCoreApplication>
#include <QSettings>

namespace tarvolt {

void QtFolderPanel::keepNothing() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

std::optional<std::filesystem::path> QtFolderPanel::runModal(const FolderPanelSettings& settings) {
    QEventLoop loop;
    waiting_ = &loop;
    {
        PortalPanel portal(loop);
        if (portal.run(settings, window_)) {
            return portal.folder();
        }
    }
    ToolkitPanel panel(settings, window_, fontForText_);
    QObject::connect(&panel, &QDialog::finished, &loop, &QEventLoop::quit);
    panel.show();
    loop.exec();
    return panel.folder();
}

void QtFolderPanel::withdraw() {
    if (waiting_) {
        waiting_->quit();
    }
}

} // namespace tarvolt
