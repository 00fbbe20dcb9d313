#pragma once

#include "model/mpc_project.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvolt {

/// One line of the sheet's preview: a name on disk before and after.
struct PreviewRow {
    std::string oldText;
    std::string newText;
};

/// One line for the project file and, if there is one, a second for the data folder. `newName` is used as typed.
std::vector<PreviewRow> previewRows(const MPCProject& project, std::string_view newName);

} // namespace tarvolt
