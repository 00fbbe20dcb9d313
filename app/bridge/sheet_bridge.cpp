#include "app/bridge/sheet_bridge.h"

#include <utility>

namespace tarvolt {

SheetBridge::SheetBridge(std::shared_ptr<ContentView> view)
    : view_(std::move(view)), beforeClosing_(view_->renamingProject.observe([this] { fading_ = shown(); })),
      tell_(
          this,
          [this] {
              emit textsChanged();
              emit openChanged();
          },
          view_->renamingProject, view_->newName, view_->errorMessage, view_->showError) {}

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
        tell_.now();
    }
}

void SheetBridge::setNewName(const QString& text) {
    if (open()) {
        view_->newName.set(editedBytes(view_->newName.get(), text));
        tell_.now();
    }
}

void SheetBridge::submitNewName() {
    if (!open() || alertOpen()) {
        return;
    }
    const MPCProject project = *shown(); // The state's own goes when the sheet closes.
    const bool succeeded = view_->performRename(project);
    tell_.now();
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
        tell_.now();
    }
}

void SheetBridge::dismissAlert() {
    view_->dismissAlert();
    tell_.now();
}

} // namespace tarvolt
