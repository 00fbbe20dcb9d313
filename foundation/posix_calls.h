#pragma once

#include "foundation/file_manager.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace tarvolt::posix {

static_assert(sizeof(off_t) == 8, "64-bit sizes and inode numbers are needed");

/// Owns an open file descriptor, or none.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { close(); }

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }

    /// Closes it now. False when the file system reports only now that written data was lost.
    bool close();

    /// Gives up ownership without closing.
    int release() { return std::exchange(number_, -1); }

private:
    int number_ = -1;
};

/// Repeats `call` as long as a signal interrupts it.
template<class Call> auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// Whether `path` contains a NUL byte, where the kernel would cut it off.
bool holdsNul(const std::filesystem::path& path);

/// Flushes what was written to disk. False when that failed; a file system that has no such call has not failed.
bool synchronise(const Descriptor& descriptor);

FileState stateOf(const struct stat& status);

/// The state of `name` in `folder`, links not followed; absent (and errno set) when there is no such item.
std::optional<FileState> stateAt(int folder, const char* name);

/// An item's name and its folder, which is held open: all calls through one Place refer to the same folder, even if the
/// path leads elsewhere by then.
class Place {
public:
    /// Opens the folder of `path`. Throws FileError, with `call` as its call.
    Place(const std::filesystem::path& path, const char* call);

    int folder() const { return folder_.number(); }
    const char* name() const { return name_.c_str(); }

    /// The state of the item, links not followed; absent (and errno set) when there is none.
    std::optional<FileState> state() const { return stateAt(folder(), name()); }

    /// Whether the item exists and is still what was seen, a FileIdentity or a FileState. When false, errno says why.
    template<class Seen> bool holds(const Seen& seen) const {
        const auto found = state();
        if (found && *found != seen) {
            errno = EBUSY; // another process has replaced it or written to it
            return false;
        }
        return found.has_value();
    }

    /// Flushes the names in the folder to disk. False when that failed; a folder that cannot be opened for reading, or
    /// a file system that has no such call, has not failed.
    bool synchroniseFolder() const;

private:
    Descriptor folder_;
    bool isReadable_ = true;
    std::string name_;
};

/// Opens a folder so that names in it can be created and removed, where possible even one that the user may not list.
/// Returns -1 and sets errno when it cannot be opened.
int openForNames(const char* folder);

/// Visits every name in an open folder, with whether it names a folder, if the listing says so. The descriptor may be
/// closed afterwards. False, with errno set, when the listing fails.
bool listNames(Descriptor& folder, const std::function<void(const char* name, std::optional<bool> isFolder)>& visit);

/// Creates a file without a name in an open folder and opens it for writing. Returns -1 and sets errno when there are
/// no such files.
int openUnnamed(int folder, mode_t mode);

/// Names a file that openUnnamed has created, without replacing anything. Returns 0, or -1 and sets errno.
int nameUnnamed(int file, int folder, const char* name);

/// Moves `from` in one folder to `to` in another without replacing anything. Returns 0, or -1 and sets errno.
int moveWithoutReplacing(int fromFolder, const char* from, int toFolder, const char* to);

/// A quarter of the machine's memory in bytes; where that is unknown, more than any file has.
std::size_t quarterOfMemory();

/// Makes the file at `place`; see FileManager::createFile. Throws FileError when the file cannot be written.
std::optional<FileState> createFile(const Place& place, const FileManager::ContentsWriter& contents);

} // namespace tarvolt::posix
