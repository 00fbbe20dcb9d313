#pragma once

#include "foundation/file_manager.h"

#include <optional>
#include <string>
#include <utility>

namespace tarvolt::testing {

/// Writes a file's contents in one part.
inline FileManager::ContentsWriter inOnePart(std::string contents) {
    return [contents = std::move(contents)](const FileManager::PartWriter& write) { write(contents); };
}

/// What FileManager::contents gives, to be compared with a text.
inline std::optional<std::string> contentsOf(const FileManager& disk, const std::filesystem::path& path) {
    const auto contents = disk.contents(path);
    return contents ? std::optional<std::string>(*contents) : std::nullopt;
}

} // namespace tarvolt::testing
