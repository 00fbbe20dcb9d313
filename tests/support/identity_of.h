#pragma once

#include "foundation/file_manager.h"

namespace tarvolt::testing {

/// The identity of what is at `path` now. Where nothing can be seen there, one that no item has.
inline FileIdentity identityOf(const FileManager& disk, const std::filesystem::path& path) {
    try {
        return disk.state(path).value_or(FileState{}).identity;
    } catch (const FileError&) {
        return {};
    }
}

} // namespace tarvolt::testing
