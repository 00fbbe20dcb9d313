#include "app/bridge/window_bridge.h"

#include "app/bridge/qt_text.h"
#include "app/sections/list_texts.h"

#include <QScopeGuard>

#include <utility>

namespace tarvolt {

WindowBridge::WindowBridge(std::shared_ptr<ContentView> view)
    : view_(std::move(view)), sheet_(view_), projects_(view_, sheet_), log_(*view_->scanner),
      tell_(
          this, [this] { emit changed(); }, view_->scanner->projects, view_->scanner->folderURL,
          view_->scanner->isScanning, view_->choosesFolder) {
    connect(&projects_, &ProjectListModel::newsTold, this, &WindowBridge::newsTold);
    connect(&log_, &LogModel::newsTold, this, &WindowBridge::newsTold);
}

QString WindowBridge::folderPath() const {
    const auto& folder = view_->scanner->folderURL.get();
    return folder ? singleLineString(folder->native()) : QString();
}

QString WindowBridge::projectCountText() const {
    const auto count = static_cast<std::int64_t>(view_->scanner->projects.get().size());
    return displayString(tarvolt::projectCountText(count, view_->scanner->services().locale.numeric));
}

void WindowBridge::selectFolder() {
    QMetaObject::invokeMethod(this, &WindowBridge::runPanel, Qt::QueuedConnection);
}

void WindowBridge::runPanel() {
    if (view_->isCovered()) {
        return;
    }
    view_->choosesFolder.set(true);
    const auto closed = qScopeGuard([this] {
        view_->choosesFolder.set(false);
        tell_.now();
    });
    tell_.now();
    view_->scanner->selectFolder();
}

void WindowBridge::withdrawPanel() {
    view_->scanner->services().folderPanel->withdraw();
}

void WindowBridge::rescan() {
    if (!scanning() && !view_->isCovered()) {
        view_->scanner->scan();
        tell_.now();
    }
}

} // namespace tarvolt
