#pragma once

#include "model/mpc_scanner.h"
#include "rename/rename_error.h"

#include <filesystem>
#include <string>

namespace tarvolt::testing {

/// The record of a project of this name in `folder`, with a data folder.
inline MPCProject projectIn(const std::filesystem::path& folder, const std::string& name = "Song") {
    return {name, folder / (name + ".xpj"), folder / (name + "_[ProjectData]"), 0, 0};
}

inline MPCProject projectWithoutDataFolderIn(const std::filesystem::path& folder, const std::string& name = "Song") {
    return {name, folder / (name + ".xpj"), std::nullopt, 0, 0};
}

/// The message of the error that the rename throws; empty if it succeeds.
inline std::string errorOfRename(MPCScanner& scanner, const MPCProject& project, const std::string& newName) {
    try {
        scanner.rename(project, newName);
    } catch (const RenameError& error) {
        return error.errorDescription();
    } catch (...) {
        return "something that is no RenameError";
    }
    return {};
}

} // namespace tarvolt::testing
