#include "app/sections/sheet_texts.h"

#include "model/folder_scan.h"

namespace tarvolt {
namespace {

PreviewRow withEnding(const MPCProject& project, std::string_view newName, std::string_view ending) {
    return {project.baseName() + std::string(ending), std::string(newName) + std::string(ending)};
}

} // namespace

std::vector<PreviewRow> previewRows(const MPCProject& project, std::string_view newName) {
    std::vector<PreviewRow> rows{withEnding(project, newName, projectFileExtension)};
    if (project.dataFolderURL()) {
        rows.push_back(withEnding(project, newName, dataFolderSuffix));
    }
    return rows;
}

} // namespace tarvolt
