#pragma once

#include "foundation/file_manager.h"

namespace tarvolt::testing {

/// What is at `path` now. Where nothing can be seen there, a state that no item is in.
inline FileState stateOf(const FileManager& disk, const std::filesystem::path& path) {
    try {
        return disk.state(path).value_or(FileState{});
    } catch (const FileError&) {
        return {};
    }
}

inline FileIdentity identityOf(const FileManager& disk, const std::filesystem::path& path) {
    return stateOf(disk, path).identity;
}

} // namespace tarvolt::testing
