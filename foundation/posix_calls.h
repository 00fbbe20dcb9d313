#pragma once

#include "foundation/file_manager.h"

#include <sys/types.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarvolt::posix {

static_assert(sizeof(off_t) == 8, "sizes and inode numbers of 64 bits are needed");

/// Owns an open descriptor, or none.
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

    /// Closes it now; false when the file system reports, only now, that something written is lost.
    bool close();

    /// Gives it away unclosed.
    int release() { return std::exchange(number_, -1); }

private:
    int number_ = -1;
};

/// Makes `call` again for as long as a signal breaks it off.
template<class Call> auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// Whether `path` holds a NUL byte, at which the kernel would cut it.
bool holdsNul(const std::filesystem::path& path);

/// Brings what was written to the disk. False when that failed; a file system that knows no such thing has not failed.
bool synchronise(const Descriptor& descriptor);

/// The name of an item in its folder, with the folder held open: all calls through one Place are about the same folder,
/// whatever happens to the path meanwhile.
class Place {
public:
    /// Opens the folder of `path`; throws FileError, with `call` as its call.
    Place(const std::filesystem::path& path, const char* call);

    int folder() const { return folder_.number(); }
    const char* name() const { return name_.c_str(); }

    /// The item itself, a link not followed; absent (and errno set) when there is none.
    std::optional<FileIdentity> identity() const;

    /// Whether the item is the one of `identity`, when that is asked for; else errno says what is wrong.
    bool holds(const std::optional<FileIdentity>& identity) const;

    /// Makes the names in the folder durable. False when that failed; a folder that cannot be opened for reading, or
    /// a file system that knows no such thing, has not failed.
    bool synchroniseFolder() const;

private:
    Descriptor folder_;
    bool isReadable_ = true;
    std::string name_;
};

/// Moves `from` in one folder to `to` in another without replacing anything. 0, or -1 and errno.
int moveWithoutReplacing(int fromFolder, const char* from, int toFolder, const char* to);

/// Makes the file at `place`; see FileManager::createFile.
std::optional<FileIdentity> createFile(const Place& place, std::string_view contents);

} // namespace tarvolt::posix
