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

} // namespace

std::shared_ptr<ContentView> ContentView::create(Services services) {
    return std::shared_ptr<ContentView>(new ContentView(std::move(services)));
}

std::vector<MPCProject> ContentView::filteredProjects() const {
    std::vector<MPCProject> matching;
    std::ranges::copy_if(scanner->projects.get(), std::back_inserter(matching),
                         [this](const MPCProject& project) { return matchesSearch(project.baseName()); });
    return matching;
}

bool ContentView::matchesSearch(const std::string& name) const {
    const auto& search = searchText.get();
    return search.empty() || localizedCaseInsensitiveContains(name, search, scanner->services().locale.characters);
}

bool ContentView::searchHides(const std::string& name) const {
    return !matchesSearch(name) &&
           std::ranges::find(scanner->projects.get(), name, &MPCProject::baseName) != scanner->projects.get().end();
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

bool ContentView::isCovered() const {
    return renamingProject.get() || showError.get() || choosesFolder.get();
}

bool ContentView::showsSearchBar() const {
    return scanner->projects.get().size() > projectsWithoutSearchBar;
}

bool ContentView::offersRename(const MPCProject& project) const {
    return !newName.get().empty() && newName.get() != project.baseName();
}

std::string ContentView::alertMessage() const {
    return errorMessage.get().value_or(localized("ContentView", "Unknown error"));
}

void ContentView::beginRename(const MPCProject& project) {
    newName.set(project.baseName());
    renamingProject.set(project);
}

void ContentView::cancelRename() {
    renamingProject.set(std::nullopt);
}

bool ContentView::performRename(const MPCProject& project) {
    const std::string name(trimWhitespace(newName.get()));
    try {
        scanner->rename(project, name);
    } catch (const RenameError& error) {
        errorMessage.set(error.errorDescription());
        showError.set(true);
        return false;
    }
    successProject.set(project.id());
    listedName.set(std::nullopt);
    renamingProject.set(std::nullopt);
    auto& mainQueue = *scanner->services().mainQueue;
    mainQueue.asyncAfter(rescanDelay, [self = shared_from_this(), name, number = ++renames_] {
        // The scan must not keep the view alive. Of several renames the last one counts.
        self->scanner->scan([weak = self->weak_from_this(), name, number] {
            if (const auto view = weak.lock(); view && view->renames_ == number) {
                view->listedName.set(name);
            }
        });
    });
    mainQueue.asyncAfter(highlightDuration, [self = shared_from_this()] { self->successProject.set(std::nullopt); });
    return true;
}

void ContentView::dismissAlert() {
    showError.set(false);
}

} // namespace tarvolt
