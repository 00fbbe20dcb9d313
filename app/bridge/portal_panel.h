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

/// The folder panel that the desktop's portal shows from a process of its own. Each object asks once; an open panel is
/// withdrawn when its object goes. Main thread.
class PortalPanel final : public QObject {
    Q_OBJECT

public:
    PortalPanel() = default;
    ~PortalPanel() override;

    /// Returns at once; `ended` follows from the event loop, as soon as there is an answer or none can come any more.
    void open(const FolderPanelSettings& settings, QWindow* window);

    /// What `ended` found: the portal is missing, too old or broken, and the person was not asked.
    bool hasFailed() const { return failed_; }

    /// What `ended` found: the folder chosen, none where the person chose none.
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
    QString portal_;  ///< the name on the bus that no other process can take
    QString request_; ///< the open panel's object path; empty while there is none
    std::optional<WaylandExport> export_;
    bool wasShown_ = false;
    bool hasEnded_ = false;
    bool failed_ = false;
    std::optional<std::filesystem::path> folder_;
};

/// The path in a portal's "file:" URI, byte for byte; none for what is no place on this machine.
std::optional<std::filesystem::path> localPath(const QString& uri);

} // namespace tarvolt
