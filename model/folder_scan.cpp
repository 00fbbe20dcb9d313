#include "model/folder_scan.h"

#include "foundation/text.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

namespace tarvolt {
namespace {

constexpr std::string_view dataFolderMark = "[ProjectData]";

/// With fewer data folders than this, one thread finishes before a second has started.
constexpr std::size_t foldersWorthThreads = 64;

char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

void addSize(std::int64_t& sum, std::int64_t size) {
    if (__builtin_add_overflow(sum, size, &sum)) {
        std::fputs("tarvolt: a sum of file sizes does not fit in 64 bits\n", stderr);
        std::abort();
    }
}

/// One project of the listing, paired with its data folder and measured.
MPCProject projectOf(const FileManager& fileManager, const std::filesystem::path& folder, const FolderListing& listing,
                     const FolderListing::ProjectFile& file) {
    std::string baseName(baseNameOf(file.name));
    std::optional<std::filesystem::path> dataFolder;
    std::int64_t count = 0;
    std::int64_t total = 0;
    if (const auto expected = baseName + std::string(dataFolderSuffix); listing.dataFolderNames.contains(expected)) {
        dataFolder = folder / expected;
        try {
            fileManager.contentsOfDirectory(*dataFolder, LinkPolicy::refuse, [&](const DirectoryEntry& entry) {
                ++count;
                addSize(total, entry.fileSize.value_or(0));
            });
        } catch (const FileError&) {
            // A data folder that cannot be listed counts as empty: the project can still be seen and renamed.
            count = total = 0;
        }
    }
    addSize(total, file.fileSize.value_or(0));
    return {std::move(baseName), folder / file.name, std::move(dataFolder), count, total};
}

/// Calls `work` once for each index below `count`, on this thread and, with `inParallel`, on a few others, which are
/// joined on every way out. Throws what `work` throws.
template<class Work> void forEachIndex(std::size_t count, bool inParallel, const Work& work) {
    std::atomic<std::size_t> next{0};
    const auto takeTurns = [&] {
        for (std::size_t i = next.fetch_add(1); i < count; i = next.fetch_add(1)) {
            work(i);
        }
    };
    std::vector<std::future<void>> helpers;
    if (inParallel) {
        // Even on a single core, a disk serves several requests at once faster than one by one.
        const auto threads = std::clamp(std::thread::hardware_concurrency(), 2U, 4U);
        try {
            while (helpers.size() + 1 < threads) {
                helpers.push_back(std::async(std::launch::async, takeTurns));
            }
        } catch (const std::system_error&) {
            // The system has no more threads: the existing ones do all the work.
        }
    }
    takeTurns();
    for (auto& helper : helpers) {
        helper.get();
    }
}

} // namespace

bool isProjectFileName(std::string_view fileName) {
    if (fileName.size() <= projectFileExtension.size()) {
        return false;
    }
    const auto stem = fileName.substr(0, fileName.size() - projectFileExtension.size());
    const auto extension = fileName.substr(stem.size());
    // Leading dots belong to the name: if nothing else comes before the last dot, there is no extension.
    return stem.find_first_not_of('.') != std::string_view::npos &&
           std::equal(extension.begin(), extension.end(), projectFileExtension.begin(),
                      [](char a, char b) { return lowerAscii(a) == b; });
}

std::string_view baseNameOf(std::string_view projectFileName) {
    return projectFileName.substr(0, projectFileName.size() - projectFileExtension.size());
}

FolderListing listFolder(const FileManager& fileManager, const std::filesystem::path& folder) {
    FolderListing listing;
    fileManager.contentsOfDirectory(folder, LinkPolicy::follow, [&](const DirectoryEntry& entry) {
        if (isProjectFileName(entry.name)) {
            listing.projectFiles.push_back({std::string(entry.name), entry.fileSize});
        }
        if (entry.isDirectory.value_or(false) && entry.name.find(dataFolderMark) != std::string_view::npos) {
            listing.dataFolderNames.emplace(entry.name);
        }
    });
    return listing;
}

void sortByName(std::vector<FolderListing::ProjectFile>& files, std::string_view locale) {
    std::vector<std::string_view> names;
    names.reserve(files.size());
    for (const auto& file : files) {
        names.push_back(baseNameOf(file.name));
    }
    std::vector<FolderListing::ProjectFile> sorted;
    sorted.reserve(files.size());
    for (const std::size_t index : localizedCaseInsensitiveCompareOrder(names, locale)) {
        sorted.push_back(std::move(files[index]));
    }
    files = std::move(sorted);
}

std::vector<MPCProject> measureProjects(const FileManager& fileManager, const std::filesystem::path& folder,
                                        const FolderListing& listing) {
    const auto& files = listing.projectFiles;
    std::vector<std::optional<MPCProject>> measured(files.size());
    const bool inParallel = std::min(files.size(), listing.dataFolderNames.size()) >= foldersWorthThreads;
    forEachIndex(files.size(), inParallel,
                 [&](std::size_t i) { measured[i] = projectOf(fileManager, folder, listing, files[i]); });
    std::vector<MPCProject> projects;
    projects.reserve(measured.size());
    for (auto& project : measured) {
        projects.push_back(*std::move(project));
    }
    return projects;
}

} // namespace tarvolt
