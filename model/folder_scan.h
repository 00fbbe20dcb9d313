#pragma once

#include "foundation/file_manager.h"
#include "model/mpc_project.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tarvolt {

/// The project file of a project B is B + this. On disk, any letter case matches.
inline constexpr std::string_view projectFileExtension = ".xpj";

/// The data folder of a project B is B + this.
inline constexpr std::string_view dataFolderSuffix = "_[ProjectData]";

/// Whether a file name's extension is "xpj" in any letter case (ASCII). A name whose only dots are leading has none.
bool isProjectFileName(std::string_view fileName);

/// A project file's name without its last extension: "Beat.final" for "Beat.final.xpj".
std::string_view baseNameOf(std::string_view projectFileName);

/// The project files and data folders among a folder's entries.
struct FolderListing {
    std::vector<std::string> projectFileNames;
    std::unordered_set<std::string> dataFolderNames;
};

/// Lists `folder`, one level deep, in the file system's order. It may itself be a link; links in it are not followed.
/// Throws FileError.
FolderListing listFolder(const FileManager& fileManager, const std::filesystem::path& folder);

/// The projects of a listing, each paired with its data folder and measured, sorted by name: ascending, ignoring case
/// by the rules of `locale`; equal names keep their order. What cannot be read counts as nothing. Throws only when
/// memory, ICU or the random generator fails. Ends the process when a sum of sizes exceeds 64 bits. May use threads of
/// its own, which end with the call.
std::vector<MPCProject> measureProjects(const FileManager& fileManager, const std::filesystem::path& folder,
                                        const FolderListing& listing, std::string_view locale);

} // namespace tarvolt
