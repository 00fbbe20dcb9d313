// Performs one rename on the real disk: tarvolt_rename_once FOLDER OLD NEW. Prints "renamed" or the message that the
// window would show. Without the names it performs one scan and prints the errors and the projects. The exit status is
// 0 whatever happens, so any other status is a crash.
#include "foundation/file_manager.h"
#include "model/folder_scan.h"
#include "model/mpc_scanner.h"
#include "rename/rename_error.h"

#include <sys/stat.h>

#include <cstdio>
#include <memory>
#include <string>

namespace {

using namespace tarvolt;

class ImmediateQueue final : public DispatchQueue {
public:
    void async(Task task) override { task(); }
    void asyncAfter(std::chrono::milliseconds, Task task) override { task(); }
};

void scanOnce(MPCScanner& scanner) {
    scanner.scan();
    for (const auto& entry : scanner.logEntries.get()) {
        if (entry.isError) {
            std::puts(entry.message.c_str());
        }
    }
    for (const auto& project : scanner.projects.get()) {
        std::puts(project.baseName().c_str());
    }
}

void renameOnce(MPCScanner& scanner, const std::string& folder, const std::string& name, const char* newName) {
    const std::string dataFolder = folder + "/" + name + std::string(dataFolderSuffix);
    struct stat status {};
    const bool hasDataFolder = ::stat(dataFolder.c_str(), &status) == 0;
    const MPCProject project(name, folder + "/" + name + ".xpj",
                             hasDataFolder ? std::optional<std::filesystem::path>(dataFolder) : std::nullopt, 0, 0);
    std::puts("begin");
    std::fflush(stdout);
    try {
        scanner.rename(project, newName);
        std::puts("renamed");
    } catch (const RenameError& error) {
        std::puts(error.errorDescription().c_str());
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4) {
        std::fputs("usage: tarvolt_rename_once FOLDER [OLD NEW]\n", stderr);
        return 2;
    }
    const auto queue = std::make_shared<ImmediateQueue>();
    const auto scanner = MPCScanner::create({makePosixFileManager(), queue, queue, nullptr});
    scanner->folderURL.set(argv[1]);
    if (argc == 2) {
        scanOnce(*scanner);
    } else {
        renameOnce(*scanner, argv[1], argv[2], argv[3]);
    }
    return 0;
}
