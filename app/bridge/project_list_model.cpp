#include "app/bridge/project_list_model.h"

#include "app/sections/list_texts.h"
#include "foundation/byte_count_formatter.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarvolt {

namespace {

struct Row {
    const MPCProject& project;
    bool renamed;
    const std::string& locale;
};

/// What QML finds in a row, by its name. A role is a place in this table.
constexpr struct Detail {
    const char* name;
    QVariant (*of)(const Row&);
} details[]{
    {"name", [](auto& row) -> QVariant { return singleLineString(row.project.baseName()); }},
    {"fileCountText",
     [](auto& row) -> QVariant { return displayString(fileCountText(row.project.fileCount(), row.locale)); }},
    {"sizeText",
     [](auto& row) -> QVariant { return displayString(byteCountText(row.project.totalSize(), row.locale)); }},
    {"hasDataFolder", [](auto& row) -> QVariant { return row.project.dataFolderURL().has_value(); }},
    {"renamed", [](auto& row) -> QVariant { return row.renamed; }},
    {"sentence",
     [](auto& row) -> QVariant { return singleLineString(projectRowSentence(row.project, row.renamed, row.locale)); }},
    {"detailsSentence",
     [](auto& row) -> QVariant {
         return singleLineString(projectDetailsSentence(row.project, row.renamed, row.locale));
     }},
    {"buttonSentence", [](auto& row) -> QVariant { return singleLineString(renameButtonSentence(row.project)); }},
};

/// The first row of which `property` gives `value`, or -1.
template<class Value, class Property>
int firstRow(const std::vector<MPCProject>& projects, const Value& value, Property property) {
    const auto found = std::ranges::find(projects, value, property);
    return found == projects.end() ? -1 : static_cast<int>(found - projects.begin());
}

} // namespace

ProjectListModel::ProjectListModel(std::shared_ptr<ContentView> view, SheetBridge& sheet)
    : view_(std::move(view)), sheet_(sheet), locale_(view_->scanner->services().locale.numeric),
      projects_(view_->filteredProjects()),
      tell_(
          this, [this] { refresh(); }, view_->scanner->projects, view_->scanner->isScanning, view_->searchText,
          view_->successProject, view_->listedName, view_->renamingProject, view_->showError, view_->choosesFolder) {
    const auto outdated = [this] { rowsOutdated_ = true; };
    subscriptions_.push_back(view_->scanner->projects.observe(outdated));
    subscriptions_.push_back(view_->searchText.observe(outdated));
}

void ProjectListModel::refresh() {
    if (std::exchange(rowsOutdated_, false)) {
        if (auto projects = view_->filteredProjects(); projects != projects_) {
            beginResetModel();
            projects_ = std::move(projects);
            endResetModel();
        }
    }
    const auto renamed = view_->successProject.get();
    if (std::exchange(renamed_, renamed) != renamed && !projects_.empty()) {
        emit dataChanged(index(0), index(rowCount() - 1));
    }
    emit changed();
    if (std::exchange(searched_, false)) {
        emit newsTold(displayString(projectCountText(rowCount(), locale_)));
    }
    leadToRenamed();
}

void ProjectListModel::leadToRenamed() {
    // A sheet, alert or panel over the list keeps the focus until it closes.
    const auto name = view_->listedName.get();
    if (name && !view_->isCovered() && !view_->scanner->isScanning.get()) {
        view_->listedName.set(std::nullopt);
        emit renamedProjectListed(firstRow(projects_, *name, &MPCProject::baseName), view_->searchHides(*name));
    }
}

void ProjectListModel::setSearchText(const QString& text) {
    searched_ = true;
    view_->searchText.set(editedBytes(view_->searchText.get(), text));
    emit changed();
}

void ProjectListModel::beginRename(int row) {
    if (row >= 0 && row < rowCount()) {
        sheet_.begin(projects_[static_cast<std::size_t>(row)]);
    }
}

int ProjectListModel::rowShowing(const QString& name) const {
    return firstRow(projects_, name, [](const MPCProject& project) { return singleLineString(project.baseName()); });
}

int ProjectListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(projects_.size());
}

QVariant ProjectListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const MPCProject& project = projects_[static_cast<std::size_t>(index.row())];
    const auto detail = static_cast<std::size_t>(role - Qt::UserRole);
    return detail < std::size(details) ? details[detail].of({project, project.id() == renamed_, locale_}) : QVariant();
}

QHash<int, QByteArray> ProjectListModel::roleNames() const {
    QHash<int, QByteArray> names;
    for (const Detail& detail : details) {
        names.insert(Qt::UserRole + static_cast<int>(names.size()), detail.name);
    }
    return names;
}

} // namespace tarvolt
