#include "app/bridge/project_list_model.h"

#include "app/bridge/qt_text.h"
#include "app/sections/list_texts.h"
#include "foundation/byte_count_formatter.h"

#include <algorithm>
#include <utility>

namespace tarvolt {

ProjectListModel::ProjectListModel(std::string locale, QObject* parent)
    : QAbstractListModel(parent), locale_(std::move(locale)) {}

void ProjectListModel::setProjects(std::vector<MPCProject> projects) {
    if (projects == projects_) {
        return;
    }
    beginResetModel();
    projects_ = std::move(projects);
    endResetModel();
}

void ProjectListModel::setRenamed(std::optional<UUID> renamed) {
    const auto previous = std::exchange(renamed_, renamed);
    if (previous == renamed) {
        return;
    }
    for (int row = 0; row < rowCount(); ++row) {
        const UUID& id = projects_[static_cast<std::size_t>(row)].id();
        if (id == previous || id == renamed) {
            emit dataChanged(index(row), index(row), {renamedRole, sentenceRole, detailsSentenceRole});
        }
    }
}

std::optional<MPCProject> ProjectListModel::projectAt(int row) const {
    if (row < 0 || row >= rowCount()) {
        return std::nullopt;
    }
    return projects_[static_cast<std::size_t>(row)];
}

int ProjectListModel::rowOf(const std::string& baseName) const {
    const auto found = std::ranges::find(projects_, baseName, &MPCProject::baseName);
    return found == projects_.end() ? -1 : static_cast<int>(found - projects_.begin());
}

int ProjectListModel::rowShowing(const QString& name) const {
    const auto found = std::ranges::find(
        projects_, name, [](const MPCProject& project) { return singleLineString(project.baseName()); });
    return found == projects_.end() ? -1 : static_cast<int>(found - projects_.begin());
}

int ProjectListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(projects_.size());
}

QVariant ProjectListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const MPCProject& project = projects_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case nameRole:
        return singleLineString(project.baseName());
    case symbolRole:
        return displayString(projectSymbol(project));
    case fileCountRole:
        return displayString(fileCountText(project.fileCount(), locale_));
    case sizeRole:
        return displayString(byteCountText(project.totalSize(), locale_));
    case hasDataFolderRole:
        return project.dataFolderURL().has_value();
    case renamedRole:
        return project.id() == renamed_;
    case sentenceRole:
        return singleLineString(projectRowSentence(project, project.id() == renamed_, locale_));
    case detailsSentenceRole:
        return singleLineString(projectDetailsSentence(project, project.id() == renamed_, locale_));
    case buttonSentenceRole:
        return singleLineString(renameButtonSentence(project));
    default:
        return {};
    }
}

QHash<int, QByteArray> ProjectListModel::roleNames() const {
    return {{nameRole, "name"},
            {symbolRole, "symbol"},
            {fileCountRole, "fileCountText"},
            {sizeRole, "sizeText"},
            {hasDataFolderRole, "hasDataFolder"},
            {renamedRole, "renamed"},
            {sentenceRole, "sentence"},
            {detailsSentenceRole, "detailsSentence"},
            {buttonSentenceRole, "buttonSentence"}};
}

} // namespace tarvolt
