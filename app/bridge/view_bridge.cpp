#include "app/bridge/view_bridge.h"

#include "app/bridge/qt_text.h"
#include "app/sections/list_texts.h"
#include "app/sections/log_texts.h"
#include "app/sections/preview_widths.h"
#include "app/sections/sheet_texts.h"
#include "app/sections/split_width.h"

#include <utility>

namespace tarvolt {

namespace {

ViewBridge::Area bridged(ContentArea area) {
    switch (area) {
    case ContentArea::folderPicker:
        return ViewBridge::FolderPicker;
    case ContentArea::emptyState:
        return ViewBridge::EmptyState;
    case ContentArea::projectList:
        break;
    }
    return ViewBridge::ProjectList;
}

} // namespace

ViewBridge::ViewBridge(std::shared_ptr<ContentView> view, Services services, QObject* parent)
    : QObject(parent), view_(std::move(view)), services_(std::move(services)), projects_(services_.locale.numeric),
      log_(view_->scanner->logEntries.get(), makeLogTimeFormatter(services_.locale.time)), header_(makeHeader()) {
    observe();
    deriveState();
    projects_.setProjects(view_->filteredProjects());
}

void ViewBridge::observe() {
    const auto soon = [this] { refreshSoon(); };
    const auto listSoon = [this] {
        listDirty_ = true;
        refreshSoon();
    };
    auto& state = *view_;
    auto& scan = *state.scanner;
    subscriptions_.push_back(scan.projects.observe(listSoon));
    subscriptions_.push_back(scan.folderURL.observe(soon));
    subscriptions_.push_back(scan.isScanning.observe(soon));
    subscriptions_.push_back(scan.logEntries.observe(soon));
    subscriptions_.push_back(state.renamingProject.observe(soon));
    subscriptions_.push_back(state.newName.observe(soon));
    subscriptions_.push_back(state.errorMessage.observe(soon));
    subscriptions_.push_back(state.showError.observe(soon));
    subscriptions_.push_back(state.successProject.observe(soon));
    subscriptions_.push_back(state.searchText.observe(listSoon));
    subscriptions_.push_back(state.finishedRename.observe(soon));
}

void ViewBridge::refreshSoon() {
    if (!std::exchange(refreshPosted_, true)) {
        QMetaObject::invokeMethod(this, &ViewBridge::refresh, Qt::QueuedConnection);
    }
}

void ViewBridge::refresh() {
    refreshPosted_ = false;
    if (std::exchange(listDirty_, false)) {
        projects_.setProjects(view_->filteredProjects());
    }
    projects_.setRenamed(view_->successProject.get());
    const int lines = log_.rowCount();
    log_.takeNewEntries();
    deriveState();
    if (std::exchange(searched_, false)) {
        emit newsTold(displayString(tarvolt::projectCountText(projects_.rowCount(), services_.locale.numeric)));
    }
    if (log_.rowCount() > lines) {
        emit newsTold(log_.data(log_.index(0), LogModel::messageRole).toString());
    }
    followRename();
}

/// Re-reads everything that is quick to read. The texts go out before what opens on them.
void ViewBridge::deriveState() {
    if (auto header = makeHeader(); header != header_) {
        header_ = std::move(header);
        emit headerChanged();
    }
    if (auto text = fieldString(view_->searchText.get()); text != searchText_) {
        searchText_ = std::move(text);
        emit searchTextChanged();
    }
    const auto& renaming = view_->renamingProject.get();
    if (renaming) {
        shownProject_ = renaming;
    }
    if (auto sheet = shownProject_ ? makeSheet(*shownProject_) : Sheet{}; sheet != sheet_) {
        sheet_ = std::move(sheet);
        emit sheetChanged();
    }
    if (auto message = displayString(view_->alertMessage()); message != alertMessage_) {
        alertMessage_ = std::move(message);
        emit alertMessageChanged();
    }
    if (std::exchange(sheetOpen_, renaming.has_value()) != sheetOpen_) {
        emit sheetOpenChanged();
    }
    if (std::exchange(alertOpen_, view_->showError.get()) != alertOpen_) {
        emit alertOpenChanged();
    }
}

ViewBridge::Header ViewBridge::makeHeader() const {
    const MPCScanner& scanner = *view_->scanner;
    const auto& folder = scanner.folderURL.get();
    const auto count = static_cast<std::int64_t>(scanner.projects.get().size());
    return {.area = bridged(view_->contentArea()),
            .hasFolder = folder.has_value(),
            .folderPath = folder ? singleLineString(folder->native()) : QString(),
            .projectCount = displayString(tarvolt::projectCountText(count, services_.locale.numeric)),
            .scanning = scanner.isScanning.get(),
            .searchBar = view_->showsSearchBar(),
            .logEmpty = scanner.logEntries.get().empty()};
}

ViewBridge::Sheet ViewBridge::makeSheet(const MPCProject& project) const {
    const std::string& newName = view_->newName.get();
    const auto rows = previewRows(project, newName);
    const bool hasFolder = rows.size() > 1;
    const PreviewRow& file = rows.front();
    const PreviewRow folder = hasFolder ? rows.back() : PreviewRow{};
    return {.currentName = singleLineString(tarvolt::currentNameText(project)),
            .newName = fieldString(newName),
            .offersRename = view_->offersRename(project),
            .oldFile = singleLineString(file.oldText),
            .newFile = singleLineString(file.newText),
            .hasDataFolder = hasFolder,
            .oldFolder = singleLineString(folder.oldText),
            .newFolder = singleLineString(folder.newText)};
}

void ViewBridge::setSearchText(const QString& text) {
    searched_ = true;
    view_->searchText.set(editedBytes(view_->searchText.get(), text));
    deriveState();
    if (text != searchText_) {
        emit searchTextChanged(); // The field has a pasted control that it is to show as a blank.
    }
}

void ViewBridge::setNewName(const QString& text) {
    if (view_->renamingProject.get()) {
        view_->newName.set(editedBytes(view_->newName.get(), text));
        deriveState();
        if (text != sheet_.newName) {
            emit sheetChanged(); // As above.
        }
    }
}

bool ViewBridge::isCovered() const {
    return sheetOpen_ || alertOpen_ || panelOpen_;
}

void ViewBridge::selectFolder() {
    if (!isCovered()) {
        panelOpen_ = true;
        emit panelOpenChanged();
        view_->scanner->selectFolder();
        panelOpen_ = false;
        deriveState();
        emit panelOpenChanged();
    }
}

void ViewBridge::withdrawPanel() {
    services_.folderPanel->withdraw();
}

void ViewBridge::rescan() {
    if (!header_.scanning && !isCovered()) {
        view_->scanner->scan();
        deriveState();
    }
}

void ViewBridge::beginRename(int row) {
    const auto project = projects_.projectAt(row);
    if (project && !isCovered()) {
        view_->beginRename(*project);
        deriveState();
    }
}

void ViewBridge::cancelRename() {
    if (!alertOpen_) {
        view_->cancelRename();
        deriveState();
    }
}

bool ViewBridge::acceptsSubmit() const {
    const auto& renaming = view_->renamingProject.get();
    return renaming && renaming == shownProject_ && !view_->showError.get();
}

void ViewBridge::submitNewName() {
    if (acceptsSubmit()) {
        performRename();
    }
}

void ViewBridge::pressRename() {
    if (acceptsSubmit() && view_->offersRename(*shownProject_)) {
        performRename();
    }
}

void ViewBridge::performRename() {
    view_->performRename(*shownProject_);
    deriveState();
}

bool ViewBridge::awaitsList() const {
    const auto& rename = view_->finishedRename.get();
    return rename && !rename->listed;
}

void ViewBridge::followRename() {
    // What stands over the list keeps the focus until it closes.
    const auto rename = view_->finishedRename.get();
    if (!rename || !rename->listed || isCovered() || view_->scanner->isScanning.get()) {
        return;
    }
    view_->finishedRename.set(std::nullopt);
    emit renamedProjectListed(projects_.rowOf(rename->name), view_->searchHides(rename->name));
}

void ViewBridge::dismissAlert() {
    view_->dismissAlert();
    deriveState();
}

double ViewBridge::allowedLogWidth(double wanted, double available) const {
    return tarvolt::allowedLogWidth(wanted, available);
}

double ViewBridge::oldNameWidth(double oldNatural, double newNatural, double available) const {
    return tarvolt::oldNameWidth(oldNatural, newNatural, available);
}

} // namespace tarvolt
