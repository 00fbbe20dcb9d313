#include "app/content_view.h"

#include "foundation/localized.h"
#include "foundation/text.h"
#include "rename/rename_error.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarvolt {
namespace {

constexpr std::size_t projectsWithoutSearchBar = 5;
constexpr std::chrono::milliseconds highlightDuration{2000};

} // namespace

std::shared_ptr<ContentView> ContentView::create(Services services) {
    return std::make_shared<ContentView>(Passkey{}, std::move(services));
}

ContentView::ContentView(Passkey, Services services)
    : scanner(MPCScanner::create(services)), showError(false), services_(std::move(services)) {}

std::vector<MPCProject> ContentView::filteredProjects() const {
    const auto& all = scanner->projects.get();
    const auto& search = searchText.get();
    if (search.empty()) {
        return all;
    }
    std::vector<MPCProject> matching;
    std::copy_if(all.begin(), all.end(), std::back_inserter(matching), [&](const MPCProject& project) {
        return localizedCaseInsensitiveContains(project.baseName, search, services_.locale.characters);
    });
    return matching;
}

ContentArea ContentView::contentArea() const {
    if (!scanner->folderURL.get()) {
        return ContentArea::folderPicker;
    }
    if (scanner->projects.get().empty() && !scanner->isScanning.get()) {
        return ContentArea::emptyState;
    }
    return ContentArea::projectList;
}

bool ContentView::showsSearchBar() const {
    return scanner->projects.get().size() > projectsWithoutSearchBar;
}

bool ContentView::offersRename(const MPCProject& project) const {
    return !newName.get().empty() && newName.get() != project.baseName;
}

std::string ContentView::alertMessage() const {
    return errorMessage.get().value_or(localized("ContentView", "Unknown error"));
}

void ContentView::beginRename(const MPCProject& project) {
    newName.set(project.baseName);
    renamingProject.set(project);
}

void ContentView::cancelRename() {
    renamingProject.set(std::nullopt);
}

void ContentView::performRename(const MPCProject& project) {
    try {
        scanner->rename(project, std::string(trimWhitespace(newName.get())));
    } catch (const RenameError& error) {
        errorMessage.set(error.errorDescription());
        showError.set(true);
        return;
    }
    successProject.set(project.id);
    renamingProject.set(std::nullopt);
    services_.mainQueue->asyncAfter(rescanDelay, [self = shared_from_this()] { self->scanner->scan(); });
    services_.mainQueue->asyncAfter(highlightDuration,
                                    [self = shared_from_this()] { self->successProject.set(std::nullopt); });
}

void ContentView::dismissAlert() {
    showError.set(false);
}

} // namespace tarvolt
