#pragma once

#include "app/bridge/log_model.h"
#include "app/bridge/project_list_model.h"
#include "app/bridge/sheet_bridge.h"
#include "app/bridge/tell_once.h"
#include "app/content_view.h"

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>

namespace tarvolt {

/// The window as QML sees it: the area under the header, the header itself, the folder panel, and the other facades.
/// Every property is computed from the state. `changed` is emitted immediately after each call made here, and otherwise
/// in the next turn of the event loop, once for all changes of a turn. Main thread.
class WindowBridge final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")

    Q_PROPERTY(Area area READ area NOTIFY changed)
    Q_PROPERTY(QString folderPath READ folderPath NOTIFY changed)
    Q_PROPERTY(QString projectCountText READ projectCountText NOTIFY changed)
    Q_PROPERTY(bool scanning READ scanning NOTIFY changed)
    Q_PROPERTY(bool panelOpen READ panelOpen NOTIFY changed)
    Q_PROPERTY(tarvolt::SheetBridge* sheet READ sheet CONSTANT)
    Q_PROPERTY(tarvolt::ProjectListModel* projects READ projects CONSTANT)
    Q_PROPERTY(tarvolt::LogModel* log READ log CONSTANT)

public:
    // NOLINTBEGIN(readability-identifier-naming): QML requires these names to begin with a capital.
    enum Area {
        FolderPicker = int(ContentArea::folderPicker),
        EmptyState = int(ContentArea::emptyState),
        ProjectList = int(ContentArea::projectList)
    };
    // NOLINTEND(readability-identifier-naming)
    Q_ENUM(Area)

    explicit WindowBridge(std::shared_ptr<ContentView> view);

    Area area() const { return static_cast<Area>(view_->contentArea()); }

    /// Empty before a folder has been chosen.
    QString folderPath() const;

    /// Counts all projects, whatever the search text.
    QString projectCountText() const;

    bool scanning() const { return view_->scanner->isScanning.get(); }
    bool panelOpen() const { return view_->choosesFolder.get(); }
    SheetBridge* sheet() { return &sheet_; }
    ProjectListModel* projects() { return &projects_; }
    LogModel* log() { return &log_; }

    /// Opens the folder panel in the next turn of the event loop, because it blocks its caller until it is closed. This
    /// and `rescan` are ignored while a sheet, alert or panel is open.
    Q_INVOKABLE void selectFolder();
    Q_INVOKABLE void withdrawPanel();
    Q_INVOKABLE void rescan();

signals:
    void changed();

    /// A screen reader should announce this text immediately.
    void newsTold(const QString& text);

private:
    void runPanel();

    const std::shared_ptr<ContentView> view_;
    SheetBridge sheet_;
    ProjectListModel projects_;
    LogModel log_;
    TellOnce tell_;
};

} // namespace tarvolt
