#pragma once

#include "model/folder_panel.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QEventLoop>
#include <QObject>
#include <QString>

#include <filesystem>
#include <optional>

class QWindow;

namespace tarvolt {

/// The folder panel of the desktop's portal, which runs in another process. Each object asks once. Main thread.
class PortalPanel final : public QObject {
    Q_OBJECT

public:
    /// `loop` runs while this waits for the portal; it must outlive the panel.
    explicit PortalPanel(QEventLoop& loop) : loop_(loop) {}

    /// Returns when there is an answer, when none can come, or when `loop` was told to quit, which closes the panel.
    /// False when the portal is missing, too old or broken, so that the user has not answered.
    bool run(const FolderPanelSettings& settings, QWindow* window);

    /// After `run` has succeeded: the folder chosen, or none if the user cancelled or the panel was closed.
    const std::optional<std::filesystem::path>& folder() const { return folder_; }

private slots:
    void takeResponse(const QDBusMessage& response);

private:
    QDBusMessage replyTo(const QDBusMessage& question);
    bool openFile(const QString& portal, const FolderPanelSettings& settings, QWindow* window);
    bool takeFolder();

    QEventLoop& loop_;
    QDBusConnection bus_ = QDBusConnection::sessionBus();
    std::optional<QDBusMessage> response_; ///< the first one; an error once the portal has vanished
    bool wasShown_ = false;
    std::optional<std::filesystem::path> folder_;
};

/// The path in a portal's "file:" URI, byte for byte; none if the URI names no place on this machine.
std::optional<std::filesystem::path> localPath(const QString& uri);

} // namespace tarvolt
