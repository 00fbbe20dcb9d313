#pragma once

#include "foundation/uuid.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace tarvolt {

/// One project found in the chosen folder: a project file and, usually, a data folder beside it. Never changes once
/// made. Two records are equal when their `id` is, whatever else they hold, so each scan makes different ones.
class MPCProject {
public:
    MPCProject(std::string baseName, std::string xpjURL, std::optional<std::string> dataFolderURL,
               std::int64_t fileCount, std::int64_t totalSize)
        : baseName_(std::move(baseName)), xpjURL_(std::move(xpjURL)), dataFolderURL_(std::move(dataFolderURL)),
          fileCount_(fileCount), totalSize_(totalSize) {}

    /// Random, drawn when the record is made.
    const UUID& id() const { return id_; }
    /// The project file's name without its extension; bytes, which need not be UTF-8.
    const std::string& baseName() const { return baseName_; }
    std::filesystem::path xpjURL() const { return xpjURL_; }
    /// `<baseName>_[ProjectData]` beside the project file; absent when there is none.
    std::optional<std::filesystem::path> dataFolderURL() const { return dataFolderURL_; }
    /// Entries directly in the data folder, without hidden ones; 0 when there is none or it cannot be listed.
    std::int64_t fileCount() const { return fileCount_; }
    /// Bytes of those entries and of the project file.
    std::int64_t totalSize() const { return totalSize_; }

    friend bool operator==(const MPCProject& a, const MPCProject& b) { return a.id_ == b.id_; }

private:
    UUID id_ = UUID::random();
    std::string baseName_;
    std::string xpjURL_; // a path object takes several times the memory
    std::optional<std::string> dataFolderURL_;
    std::int64_t fileCount_;
    std::int64_t totalSize_;
};

} // namespace tarvolt

template<> struct std::hash<tarvolt::MPCProject> {
    std::size_t operator()(const tarvolt::MPCProject& project) const noexcept {
        return std::hash<tarvolt::UUID>{}(project.id());
    }
};
