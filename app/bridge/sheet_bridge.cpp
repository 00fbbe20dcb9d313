#include "app/bridge/sheet_bridge.h"

#include "app/bridge/tell_once.h"

#include <utility>

namespace tarvolt {

SheetBridge::SheetBridge(std::shared_ptr<ContentView> view)
    : view_(std::move(view)),
      subscriptions_(tellOnce(
          this, [this] { tell(); }, view_->renamingProject, view_->newName, view_->errorMessage, view_->showError)) {
    subscriptions_.push_back(view_->renamingProject.observe([this] { fading_ = shown(); }));
}

void SheetBridge::tell() {
    emit textsChanged();
    emit openChanged();
}

const std::optional<MPCProject>& SheetBridge::shown() const {
    const auto& renaming = view_->renamingProject.get();
    return renaming ? renaming : fading_;
}

PreviewRow SheetBridge::previewRow(std::size_t index) const {
    const auto rows = shown() ? previewRows(*shown(), view_->newName.get()) : std::vector<PreviewRow>();
    return index < rows.size() ? rows[index] : PreviewRow{};
}

void SheetBridge::begin(const MPCProject& project) {
    if (!view_->isCovered()) {
        view_->beginRename(project);
        tell();
    }
}

void SheetBridge::setNewName(const QString& text) {
    if (open()) {
        view_->newName.set(editedBytes(view_->newName.get(), text));
        tell();
    }
}

void SheetBridge::submitNewName() {
    if (!open() || alertOpen()) {
        return;
    }
    const MPCProject project = *shown(); // The state's own goes when the sheet closes.
    const bool succeeded = view_->performRename(project);
    tell();
    if (succeeded) {
        emit renamed();
    }
}

void SheetBridge::pressRename() {
    if (offersRename()) {
        submitNewName();
    }
}

void SheetBridge::cancelRename() {
    if (!alertOpen()) {
        view_->cancelRename();
        tell();
    }
}

void SheetBridge::dismissAlert() {
    view_->dismissAlert();
    tell();
}

} // namespace tarvolt
