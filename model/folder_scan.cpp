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

constexpr std::string_view dataFolderMark = dataFolderSuffix.substr(1); // without the underscore

char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

void addSize(std::int64_t& sum, std::int64_t size) {
    if (__builtin_add_overflow(sum, size, &sum)) {
        std::fputs("tarvolt: a sum of file sizes does not fit in 64 bits\n", stderr);
        std::abort();
    }
}

/// One project of the listing, paired with its data folder and measured. `prefix` is the folder's path with a slash.
MPCProject projectOf(const FileManager& fileManager, const std::string& prefix, const FolderListing& listing,
                     const std::string& fileName) {
    std::string baseName(baseNameOf(fileName));
    std::optional<std::string> dataFolder;
    std::int64_t count = 0;
    std::int64_t total = 0;
    if (const auto expected = baseName + std::string(dataFolderSuffix); listing.dataFolderNames.contains(expected)) {
        dataFolder = prefix + expected;
        try {
            fileManager.contentsOfDirectory(*dataFolder, LinkPolicy::refuse, Sizes::ask,
                                            [&](const DirectoryEntry& entry) {
                                                ++count;
                                                addSize(total, entry.fileSize.value_or(0));
                                            });
        } catch (const FileError&) {
            // A data folder that cannot be listed counts as empty: the project can still be seen and renamed.
            count = total = 0;
        }
    }
    std::string file = prefix + fileName;
    try {
        if (const auto state = fileManager.state(file)) {
            addSize(total, state->size);
        }
    } catch (const FileError&) {
        // A size that cannot be determined counts as none.
    }
    return {std::move(baseName), std::move(file), std::move(dataFolder), count, total};
}

/// The indices of `files`, sorted by the projects' names.
std::vector<std::size_t> orderByName(const std::vector<std::string>& files, std::string_view locale) {
    std::vector<std::string_view> names(files.size());
    std::ranges::transform(files, names.begin(), baseNameOf);
    return localizedCaseInsensitiveCompareOrder(names, locale);
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
    const auto stem = baseNameOf(fileName);
    const auto extension = fileName.substr(stem.size());
    // Leading dots belong to the name: if nothing else comes before the last dot, there is no extension.
    return stem.find_first_not_of('.') != std::string_view::npos &&
           std::ranges::equal(extension, projectFileExtension, {}, lowerAscii);
}

std::string_view baseNameOf(std::string_view projectFileName) {
    return projectFileName.substr(0, projectFileName.size() - projectFileExtension.size());
}

FolderListing listFolder(const FileManager& fileManager, const std::filesystem::path& folder) {
    FolderListing listing;
    fileManager.contentsOfDirectory(folder, LinkPolicy::follow, Sizes::skip, [&](const DirectoryEntry& entry) {
        if (isProjectFileName(entry.name)) {
            listing.projectFileNames.emplace_back(entry.name);
        }
        if (entry.isDirectory.value_or(false) && entry.name.find(dataFolderMark) != std::string_view::npos) {
            listing.dataFolderNames.emplace(entry.name);
        }
    });
    return listing;
}

std::vector<MPCProject> measureProjects(const FileManager& fileManager, const std::filesystem::path& folder,
                                        const FolderListing& listing, std::string_view locale) {
    const auto& files = listing.projectFileNames;
    const std::string prefix = folder / "";
    std::vector<std::size_t> order;
    std::vector<std::optional<MPCProject>> measured(files.size());
    forEachIndex(1 + files.size(), files.size() > 1, [&](std::size_t i) {
        if (i == 0) { // one thread sorts while the others measure
            order = orderByName(files, locale);
        } else {
            measured[i - 1] = projectOf(fileManager, prefix, listing, files[i - 1]);
        }
    });
    std::vector<MPCProject> projects;
    projects.reserve(files.size());
    for (const std::size_t index : order) {
        projects.push_back(*std::move(measured[index]));
    }
    return projects;
}

} // namespace tarvolt
