#pragma once

#include "foundation/file_manager.h"
#include "model/mpc_project.h"

#include <cstdint>
#include <filesystem>
#include <optional>
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
    struct ProjectFile {
        std::string name;
        std::optional<std::int64_t> fileSize;
    };
    std::vector<ProjectFile> projectFiles;
    std::unordered_set<std::string> dataFolderNames;
};

/// Lists `folder`, one level deep, in the file system's order. It may itself be a link; links in it are not followed.
/// Throws FileError.
FolderListing listFolder(const FileManager& fileManager, const std::filesystem::path& folder);

/// Sorts by the projects' names, ascending, ignoring case by the rules of `locale`. Equal names keep their order.
void sortByName(std::vector<FolderListing::ProjectFile>& files, std::string_view locale);

/// The projects of a listing, in its order, each paired with its data folder and measured. What cannot be read
/// counts as nothing. Throws only when memory or the random generator fails. Ends the process when a sum of sizes
/// exceeds 64 bits. May use threads of its own, which end with the call.
std::vector<MPCProject> measureProjects(const FileManager& fileManager, const std::filesystem::path& folder,
                                        const FolderListing& listing);

} // namespace tarvolt
