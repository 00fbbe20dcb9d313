// One job in a process of its own, to be timed from outside:
//
//   tarvolt_once scan FOLDER              prints what was found
//   tarvolt_once rename FOLDER OLD NEW    prints the peak memory above that at the start, in bytes
#include "foundation/file_manager.h"
#include "model/folder_scan.h"
#include "model/mpc_scanner.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

namespace {

using namespace tarvolt;

class NoQueue final : public DispatchQueue {
public:
    void async(Task) override {}
    void asyncAfter(std::chrono::milliseconds, Task) override {}
};

long peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmHWM:") {
            long kilobytes = 0;
            status >> kilobytes;
            return kilobytes * 1024;
        }
    }
    return 0;
}

void scan(const std::string& folder) {
    const auto disk = makePosixFileManager();
    std::int64_t entries = 0;
    std::int64_t bytes = 0;
    const auto projects = measureProjects(*disk, folder, listFolder(*disk, folder), "en_US");
    for (const auto& project : projects) {
        entries += project.fileCount();
        bytes += project.totalSize();
    }
    std::printf("%zu projects, %lld entries, %lld bytes\n", projects.size(), static_cast<long long>(entries),
                static_cast<long long>(bytes));
}

void rename(const std::string& folder, const std::string& name, const std::string& newName) {
    const auto queue = std::make_shared<NoQueue>();
    const auto scanner = MPCScanner::create({makePosixFileManager(), queue, queue, nullptr});
    scanner->folderURL.set(folder);
    const auto start = folder + "/" + name;
    const long before = peakMemory();
    scanner->rename(MPCProject(name, start + ".xpj", start + std::string(dataFolderSuffix), 0, 0), newName);
    std::printf("%ld\n", peakMemory() - before);
}

} // namespace

int main(int argc, char** argv) {
    const std::string operation = argc > 1 ? argv[1] : "";
    if (operation == "scan" && argc == 3) {
        scan(argv[2]);
    } else if (operation == "rename" && argc == 5) {
        rename(argv[2], argv[3], argv[4]);
    } else {
        std::fputs("usage: tarvolt_once scan FOLDER | rename FOLDER OLD NEW\n", stderr);
        return 2;
    }
    return 0;
}
