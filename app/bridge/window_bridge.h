#pragma once

#include "app/bridge/log_model.h"
#include "app/bridge/project_list_model.h"
#include "app/bridge/sheet_bridge.h"
#include "app/content_view.h"

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>
#include <vector>

namespace tarvolt {

/// The window as QML sees it: which area it shows, the header, the folder panel, and its other parts. Everything is
/// computed from the state; `changed` comes at once after each call here, and for whatever changes by itself in the
/// next turn of the event loop, once for all changes of a turn. Main thread.
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
    /// The language of the views wants capitals here.
    enum Area { // NOLINT(readability-identifier-naming)
        FolderPicker = int(ContentArea::folderPicker),
        EmptyState = int(ContentArea::emptyState),
        ProjectList = int(ContentArea::projectList)
    };
    Q_ENUM(Area)

    explicit WindowBridge(std::shared_ptr<ContentView> view);

    Area area() const { return static_cast<Area>(view_->contentArea()); }

    /// Empty before a folder has been chosen.
    QString folderPath() const;

    /// Of all projects, whatever the search.
    QString projectCountText() const;

    bool scanning() const { return view_->scanner->isScanning.get(); }
    bool panelOpen() const { return view_->choosesFolder.get(); }
    SheetBridge* sheet() { return &sheet_; }
    ProjectListModel* projects() { return &projects_; }
    LogModel* log() { return &log_; }

    /// Asks for a folder in the next turn of the event loop, because the panel keeps its caller until it is closed.
    /// This and `rescan` do nothing while something stands over the window.
    Q_INVOKABLE void selectFolder();
    Q_INVOKABLE void withdrawPanel();
    Q_INVOKABLE void rescan();

signals:
    void changed();

    /// What a person who cannot see the window should hear at once.
    void newsTold(const QString& text);

private:
    void runPanel();

    const std::shared_ptr<ContentView> view_;
    SheetBridge sheet_;
    ProjectListModel projects_;
    LogModel log_;
    std::vector<Subscription> subscriptions_;
};

} // namespace tarvolt
