#include "benchmarks/floors/calls.h"
#include "benchmarks/floors/floors.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <future>
#include <string>
#include <unordered_set>
#include <vector>

namespace tarvolt::benchmarks {

namespace {

template<class Visit> void forEachEntry(int folder, const Visit& visit) {
    alignas(dirent64) std::array<char, 65536> items;
    while (const auto length = succeed(::getdents64(folder, items.data(), items.size()), "getdents64")) {
        for (const char* at = items.data(); at < items.data() + length;) {
            const auto& item = *reinterpret_cast<const dirent64*>(at);
            if (item.d_name[0] != '.') {
                visit(item);
            }
            at += item.d_reclen;
        }
    }
}

std::int64_t sizeOf(int folder, const char* name) {
    struct stat status {};
    succeed(::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW), "fstatat");
    return status.st_size;
}

/// The sizes of the entries of a folder in `parent`.
std::int64_t sizeOfEntries(int parent, const char* name) {
    const int folder = openAt(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    std::int64_t total = 0;
    forEachEntry(folder, [&](const dirent64& item) { total += sizeOf(folder, item.d_name); });
    ::close(folder);
    return total;
}

/// The sizes of the projects in a folder.
std::int64_t scanOnce(const std::string& folder, bool onTwoThreads) {
    const int top = openAt(AT_FDCWD, folder.c_str(), O_RDONLY | O_DIRECTORY);
    std::vector<std::string> files;
    std::unordered_set<std::string> folders;
    forEachEntry(top, [&](const dirent64& item) {
        if (item.d_type == DT_DIR) {
            folders.emplace(item.d_name);
        } else {
            files.emplace_back(item.d_name);
        }
    });
    std::atomic<std::size_t> next{0};
    const auto measure = [&] {
        std::int64_t total = 0;
        for (std::size_t i = next++; i < files.size(); i = next++) {
            const auto& file = files[i];
            total += sizeOf(top, file.c_str());
            const auto found = folders.find(file.substr(0, file.size() - 4).append(tail));
            total += found == folders.end() ? 0 : sizeOfEntries(top, found->c_str());
        }
        return total;
    };
    std::future<std::int64_t> second;
    if (onTwoThreads) {
        second = std::async(std::launch::async, measure);
    }
    const std::int64_t total = measure() + (onTwoThreads ? second.get() : 0);
    ::close(top);
    return total;
}

} // namespace

void scanFloor(benchmark::State& state, const std::string& folder, bool onTwoThreads) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(scanOnce(folder, onTwoThreads));
    }
}

} // namespace tarvolt::benchmarks
