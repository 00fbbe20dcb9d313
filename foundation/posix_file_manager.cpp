#include "foundation/posix_calls.h"

#include <fcntl.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace tarvolt {
namespace {

using posix::Descriptor;
using posix::Place;
using posix::uninterrupted;

DirectoryEntry examine(int folder, const char* name, std::optional<bool> isDirectory, Sizes sizes) {
    DirectoryEntry entry{name, isDirectory, std::nullopt};
    const bool isKnown = isDirectory && (*isDirectory || sizes == Sizes::skip);
    struct stat status {};
    if (!isKnown && ::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0) {
        entry.isDirectory = S_ISDIR(status.st_mode);
        if (!*entry.isDirectory) {
            entry.fileSize = status.st_size;
        }
    }
    return entry;
}

std::optional<FileContents> readToTheEnd(const Descriptor& file, std::size_t expectedSize) {
    constexpr std::size_t leastRoom = 4096;
    const std::size_t mostSize = posix::quarterOfMemory(); // a rename may have to hold a file twice
    if (expectedSize > mostSize) {
        return std::nullopt;
    }
    std::size_t room = expectedSize + 1; // one more, so that the read at the end has room
    FileContents contents{std::make_unique_for_overwrite<char[]>(room)};
    for (;;) {
        const auto count = uninterrupted(
            [&] { return ::read(file.number(), contents.bytes.get() + contents.size, room - contents.size); });
        if (count < 0) {
            return std::nullopt;
        }
        contents.size += static_cast<std::size_t>(count);
        if (count == 0) {
            // A network drive that has lost its connection may report the end of the file too early.
            return contents.size >= expectedSize ? std::optional(std::move(contents)) : std::nullopt;
        }
        if (contents.size > mostSize) {
            return std::nullopt;
        }
        if (contents.size == room) { // the file is growing
            room = std::min(room + std::max(room, leastRoom), mostSize + 1);
            auto larger = std::make_unique_for_overwrite<char[]>(room);
            std::copy_n(contents.bytes.get(), contents.size, larger.get());
            contents.bytes = std::move(larger);
        }
    }
}

class PosixFileManager final : public FileManager {
public:
    void contentsOfDirectory(const std::filesystem::path& folder, LinkPolicy links, Sizes sizes,
                             const Visitor& visit) const override {
        if (posix::holdsNul(folder)) {
            throw FileError(EINVAL, "open", folder);
        }
        const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | (links == LinkPolicy::refuse ? O_NOFOLLOW : 0);
        Descriptor directory(uninterrupted([&] { return ::open(folder.c_str(), flags); }));
        if (!directory) {
            throw FileError(errno, "open", folder);
        }
        const int number = directory.number();
        if (!posix::listNames(directory, [&](const char* name, std::optional<bool> isDirectory) {
                if (*name != '.') {
                    visit(examine(number, name, isDirectory, sizes));
                }
            })) {
            throw FileError(errno, "readdir", folder);
        }
    }

    bool fileExists(const std::filesystem::path& path) const override {
        return !posix::holdsNul(path) && posix::stateAt(AT_FDCWD, path.c_str());
    }

    std::optional<FileState> state(const std::filesystem::path& path) const override {
        if (posix::holdsNul(path)) {
            return std::nullopt;
        }
        const auto found = posix::stateAt(AT_FDCWD, path.c_str());
        if (!found && errno != ENOENT && errno != ENOTDIR && errno != ENAMETOOLONG) {
            throw FileError(errno, "stat", path);
        }
        return found;
    }

    std::optional<FileContents> contents(const std::filesystem::path& path) const override {
        struct stat status {};
        if (posix::holdsNul(path) || ::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
            return std::nullopt;
        }
        // A pipe or a terminal may have taken its place since the check. Opening it must not block, nor make it the
        // controlling terminal.
        const int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
        const Descriptor file(uninterrupted([&] { return ::open(path.c_str(), flags); }));
        if (!file || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) {
            return std::nullopt;
        }
        return readToTheEnd(file, static_cast<std::size_t>(status.st_size));
    }

    std::optional<FileState> createFile(const std::filesystem::path& path, const ContentsWriter& contents) override {
        try {
            return posix::createFile(Place(path, "open"), contents);
        } catch (const FileError&) {
            return std::nullopt; // the caller learns only that it failed
        }
    }

    void moveItem(const std::filesystem::path& from, const std::filesystem::path& to,
                  const FileIdentity& onlyIf) override {
        const Place source(from, "rename");
        const Place destination(to, "rename");
        const bool leavesItsFolder = from.parent_path() != to.parent_path(); // the last that needs memory
        if (!source.holds(onlyIf)) {
            throw FileError(errno, "rename", from);
        }
        if (posix::moveWithoutReplacing(source.folder(), source.name(), destination.folder(), destination.name()) !=
            0) {
            const int error = errno;
            // A network drive can do the move and lose the reply. An item that has both names has not been moved.
            if (!destination.holds(onlyIf) || source.state()) {
                throw FileError(error, "rename", from);
            }
        }
        // A failure here does not undo the move: after a power cut the item has one name or the other.
        destination.synchroniseFolder();
        if (leavesItsFolder) {
            source.synchroniseFolder();
        }
    }

    void removeItem(const std::filesystem::path& path, const FileState& onlyIf) override {
        const Place place(path, "unlink");
        if (!place.holds(onlyIf) || ::unlinkat(place.folder(), place.name(), 0) != 0) {
            throw FileError(errno, "unlink", path);
        }
        place.synchroniseFolder(); // if a power cut undoes the removal, there is one file too many
    }
};

} // namespace

std::shared_ptr<FileManager> makePosixFileManager() {
    return std::make_shared<PosixFileManager>();
}

} // namespace tarvolt
