#pragma once

#include "app/bridge/wayland_export.h"
#include "model/folder_panel.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

#include <filesystem>
#include <functional>
#include <optional>

class QWindow;

namespace tarvolt {

/// The folder panel of the desktop's portal, which runs in another process. An object asks once and closes its panel
/// when it is destroyed. Main thread.
class PortalPanel final : public QObject {
    Q_OBJECT

public:
    PortalPanel() = default;
    ~PortalPanel() override;

    /// Returns at once. `ended` is emitted later, from the event loop: when there is an answer, or when none can come.
    void open(const FolderPanelSettings& settings, QWindow* window);

    /// After `ended`: the portal is missing, too old or broken, so no answer is the person's.
    bool hasFailed() const { return failed_; }

    /// After `ended` without a failure: the folder chosen, or none if the person cancelled.
    const std::optional<std::filesystem::path>& folder() const { return folder_; }

signals:
    void ended();

private slots:
    void takeResponse(const QDBusMessage& response);

private:
    using Answer = std::function<void(const QDBusMessage&)>;

    void ask(const QDBusMessage& question, const Answer& answer);
    void openFile(const QString& portal, const FolderPanelSettings& settings, QWindow* window);
    QString portalName(QWindow* window);
    void end(bool failed);

    QDBusConnection bus_ = QDBusConnection::sessionBus();
    QDBusServiceWatcher watcher_;
    QString portal_;  ///< the portal's unique name on the bus
    QString request_; ///< the object path of the open panel; empty while none is open
    std::optional<WaylandExport> export_;
    bool wasShown_ = false;
    bool hasEnded_ = false;
    bool failed_ = false;
    std::optional<std::filesystem::path> folder_;
};

/// The path in a portal's "file:" URI, byte for byte; none if the URI names no place on this machine.
std::optional<std::filesystem::path> localPath(const QString& uri);

} // namespace tarvolt
