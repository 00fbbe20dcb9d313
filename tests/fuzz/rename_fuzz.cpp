#include "tests/fuzz/input.h"
#include "tests/fuzz/require.h"
#include "tests/fuzz/slow_rename.h"
#include "tests/support/renaming.h"
#include "tests/support/scene.h"
#include "tests/support/temporary_folder.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

using namespace tarvolt;

namespace {

namespace fs = std::filesystem;
using testing::SlowFolder;
using testing::SlowItem;
using Kind = SlowItem::Kind;
using Lines = std::vector<std::string>;

const std::string tail = "_[ProjectData]";
const std::string inside = "/kick.wav"; // the one file in each folder

/// A folder, and the rename to be tried in it.
struct Attempt {
    std::string oldName;
    std::string newName;
    bool hasDataFolder = false; ///< as the record of the project has it; the disk may have changed since
    SlowFolder folder;
};

/// Whether the names of a project called this can be made on the disk.
bool canBeMade(const std::string& name) {
    return !name.empty() && name.size() <= 200 && name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

/// A line with the old name, one with the new one, one with what is at each of the four names and whether the record
/// has a data folder, and the text.
Attempt attemptFrom(std::string_view input) {
    Attempt attempt;
    attempt.oldName = expanded(cutLine(input), {});
    attempt.newName = expanded(cutLine(input), attempt.oldName);
    const std::string_view choices = cutLine(input);
    const std::string text = expanded(input, attempt.oldName);
    attempt.folder = {{"text", {Kind::file, text}}, {"elsewhere", {Kind::folder, "hiss"}}};
    const std::string data = attempt.oldName + tail;
    const SlowItem items[] = {{Kind::file, text},      {Kind::folder, "boom"}, {Kind::pipe, {}},
                              {Kind::link, "nowhere"}, {Kind::link, "text"},   {Kind::link, "elsewhere"},
                              {Kind::link, data}};
    std::string names[] = {attempt.oldName + ".xpj", data, attempt.newName + ".xpj", attempt.newName + tail};
    for (std::size_t at = 0; at < std::min(std::size(names), choices.size()); ++at) {
        const auto choice = static_cast<std::uint8_t>(choices[at]) % (std::size(items) + 1);
        if (choice > 0 && canBeMade(at < 2 ? attempt.oldName : attempt.newName)) {
            attempt.folder.emplace(names[at], items[choice - 1]);
        }
    }
    attempt.hasDataFolder = choices.size() > 4 && choices[4] % 2 != 0;
    return attempt;
}

void makeInMemory(testing::FakeFileManager& disk, const SlowFolder& folder) {
    disk.addFolder("/p");
    for (const auto& [name, item] : folder) {
        const std::string path = "/p/" + name;
        switch (item.kind) {
        case Kind::file:
            disk.addFile(path, item.contents);
            break;
        case Kind::folder:
            disk.addFolder(path);
            disk.addFile(path + inside, item.contents);
            break;
        case Kind::link:
            disk.addLink(path, "/p/" + item.contents);
            break;
        case Kind::pipe:
            disk.addPipe(path);
            break;
        }
    }
}

void makeOnDisk(const testing::TemporaryFolder& disk, const SlowFolder& folder) {
    for (const auto& entry : fs::directory_iterator(disk.path())) {
        fs::remove_all(entry.path());
    }
    for (const auto& [name, item] : folder) {
        switch (item.kind) {
        case Kind::file:
            disk.write(name, item.contents);
            break;
        case Kind::folder:
            disk.write(name + inside, item.contents);
            break;
        case Kind::link:
            fs::create_symlink(item.contents, disk / name);
            break;
        case Kind::pipe:
            require(::mkfifo((disk / name).c_str(), 0600) == 0, "makes a pipe");
            break;
        }
    }
}

Lines sorted(Lines lines) {
    std::ranges::sort(lines);
    return lines;
}

Lines linesInMemory(const SlowFolder& folder) {
    Lines lines{"/p/"};
    for (const auto& [name, item] : folder) {
        const std::string path = "/p/" + name;
        if (item.kind == Kind::folder) {
            lines.push_back(path + "/");
            lines.push_back(path + inside + "=" + item.contents);
        } else {
            lines.push_back(path + "=" + (item.kind == Kind::link ? "/p/" : "") + item.contents);
        }
    }
    return sorted(lines);
}

Lines linesOnDisk(const SlowFolder& folder) {
    Lines lines;
    for (const auto& [name, item] : folder) {
        switch (item.kind) {
        case Kind::file:
            lines.push_back(name + "=" + item.contents);
            break;
        case Kind::folder:
            lines.push_back(name + "/");
            lines.push_back(name + inside + "=" + item.contents);
            break;
        case Kind::link:
            lines.push_back(name + "->" + item.contents);
            break;
        case Kind::pipe:
            lines.push_back(name + "!");
            break;
        }
    }
    return sorted(lines);
}

/// Renames in `folder` on `disk` and requires the message and the log line of a slow rename.
void tryRename(const Attempt& attempt, const testing::SlowOutcome& expected, const fs::path& folder,
               const std::shared_ptr<FileManager>& disk) {
    const testing::Scene scene;
    const auto scanner = MPCScanner::create(scene.services(disk));
    scanner->folderURL.set(folder);
    const MPCProject project = attempt.hasDataFolder ? testing::projectIn(folder, attempt.oldName)
                                                     : testing::projectWithoutDataFolderIn(folder, attempt.oldName);
    const std::string message = testing::errorOfRename(*scanner, project, attempt.newName);
    require(expected.messages.contains(message), "says what an obvious rename says");
    scene.settle();
    Lines log;
    if (message.empty()) {
        log.push_back("Renamed \"" + attempt.oldName + "\" \u2192 \"" + attempt.newName + "\"");
    }
    require(testing::messages(*scanner) == log, "logs a rename that succeeded, and nothing else");
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Attempt attempt = attemptFrom({reinterpret_cast<const char*>(data), size});
    if (!canBeMade(attempt.oldName)) {
        return -1; // no project has this name
    }
    const auto outcome = [&](bool hasLimits) {
        return testing::slowRename(attempt.folder, attempt.oldName, attempt.hasDataFolder, attempt.newName, hasLimits);
    };

    const auto fake = std::make_shared<testing::FakeFileManager>();
    makeInMemory(*fake, attempt.folder);
    tryRename(attempt, outcome(false), "/p", fake);
    require(sorted(fake->disk()) == linesInMemory(outcome(false).folder), "leaves what an obvious rename leaves");

    static const testing::TemporaryFolder folder;
    static const auto real = makePosixFileManager();
    makeOnDisk(folder, attempt.folder);
    tryRename(attempt, outcome(true), folder.path(), real);
    require(folder.tree() == linesOnDisk(outcome(true).folder), "leaves on the real disk what an obvious one leaves");
    return 0;
}
