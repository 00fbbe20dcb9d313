#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvolt::testing {

/// An empty folder on the real disk, removed with its object, whatever the modes of its contents.
class TemporaryFolder {
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const;

    /// Creates a file and its parent folders.
    std::filesystem::path write(std::string_view name, std::string_view contents) const;
    std::filesystem::path makeFolder(std::string_view name) const;

    /// See treeOf.
    std::vector<std::string> tree() const;

private:
    std::filesystem::path path_;
};

/// Every item below `folder`, sorted, links not followed: "a/" for a folder, "a=contents" for a file, "a->target" for a
/// link, "a!" for anything else.
std::vector<std::string> treeOf(const std::filesystem::path& folder);

std::string readFile(const std::filesystem::path& path);

/// Creates a socket at `path`. Returns why that cannot be done here, or nothing.
std::optional<std::string> makeSocket(const std::filesystem::path& path);

} // namespace tarvolt::testing
