#pragma once

#include "foundation/file_manager.h"
#include "model/mpc_project.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvolt {

/// What the project file of a project called B is called: B + this. On disk, any letter case counts.
inline constexpr std::string_view projectFileExtension = ".xpj";

/// What the data folder of a project called B is called: B + this.
inline constexpr std::string_view dataFolderSuffix = "_[ProjectData]";

/// Whether a file name's extension is "xpj" in any letter case (ASCII). A name that begins with its only dot has none.
bool isProjectFileName(std::string_view fileName);

/// A project file's name without its extension, the last one only: "Beat.final" for "Beat.final.xpj".
std::string_view baseNameOf(std::string_view projectFileName);

/// The entries of the chosen folder that matter, in listing order.
struct FolderListing {
    struct ProjectFile {
        std::string name;
        std::optional<std::int64_t> fileSize;
    };
    std::vector<ProjectFile> projectFiles;
    std::vector<std::string> dataFolderNames; ///< distinct, sorted by bytes
};

/// Lists `folder`, one level; links in it are not followed, `folder` itself may be one. Throws FileError.
FolderListing listFolder(const FileManager& fileManager, const std::filesystem::path& folder);

/// The projects of a listing, each paired with its data folder and measured, in listing order. What cannot be read
/// counts as nothing. Throws only when memory or the random generator fails. Ends the process when a sum of sizes
/// exceeds 64 bits. May use threads of its own, which end with the call.
std::vector<MPCProject> measureProjects(const FileManager& fileManager, const std::filesystem::path& folder,
                                        const FolderListing& listing);

/// Sorts by name, ascending, without regard to case by the rules of `locale`; equal names keep their order.
void sortByName(std::vector<MPCProject>& projects, std::string_view locale);

} // namespace tarvolt
