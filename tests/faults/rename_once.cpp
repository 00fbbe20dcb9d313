// Performs one rename on the real disk: tarvolt_rename_once FOLDER OLD NEW. Prints "renamed" or the message that the
// window would show. The exit status is 0 either way, so any other status is a crash.
#include "foundation/file_manager.h"
#include "model/folder_scan.h"
#include "model/mpc_scanner.h"
#include "rename/rename_error.h"

#include <sys/stat.h>

#include <cstdio>
#include <memory>
#include <string>

namespace {

class ImmediateQueue final : public tarvolt::DispatchQueue {
public:
    void async(tarvolt::Task task) override { task(); }
    void asyncAfter(std::chrono::milliseconds, tarvolt::Task task) override { task(); }
};

} // namespace

int main(int argc, char** argv) {
    using namespace tarvolt;
    if (argc != 4) {
        std::fputs("usage: tarvolt_rename_once FOLDER OLD NEW\n", stderr);
        return 2;
    }
    const std::string folder = argv[1];
    const std::string name = argv[2];
    const auto queue = std::make_shared<ImmediateQueue>();
    const auto scanner = MPCScanner::create({makePosixFileManager(), queue, queue, nullptr});
    scanner->folderURL.set(folder);
    const std::string dataFolder = folder + "/" + name + std::string(dataFolderSuffix);
    struct stat status {};
    const bool hasDataFolder = ::stat(dataFolder.c_str(), &status) == 0;
    const MPCProject project(name, folder + "/" + name + ".xpj",
                             hasDataFolder ? std::optional<std::filesystem::path>(dataFolder) : std::nullopt, 0, 0);
    std::puts("begin");
    std::fflush(stdout);
    try {
        scanner->rename(project, argv[3]);
        std::puts("renamed");
    } catch (const RenameError& error) {
        std::puts(error.errorDescription().c_str());
    }
    return 0;
}
