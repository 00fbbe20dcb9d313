#pragma once

#include "foundation/uuid.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace tarvolt {

/// One project found in the chosen folder: a project file and, usually, a data folder beside it. Two records are equal
/// when their `id` is, whatever else they hold: each scan makes new identities.
struct MPCProject {
    UUID id;                                            ///< drawn afresh by every scan
    std::string baseName;                               ///< the project file's name without its extension, bytes
    std::filesystem::path xpjURL;                       ///< the project file
    std::optional<std::filesystem::path> dataFolderURL; ///< `<baseName>_[ProjectData]` beside it, when there is one
    std::int64_t fileCount = 0; ///< entries directly in the data folder, hidden ones left out; 0 without one
    std::int64_t totalSize = 0; ///< bytes of those entries and of the project file

    friend bool operator==(const MPCProject& a, const MPCProject& b) { return a.id == b.id; }
};

} // namespace tarvolt

template<> struct std::hash<tarvolt::MPCProject> {
    std::size_t operator()(const tarvolt::MPCProject& project) const noexcept {
        return std::hash<tarvolt::UUID>{}(project.id);
    }
};
