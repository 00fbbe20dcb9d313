#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace tarvolt {

/// A failed file operation. `code()` is the operating system's error.
class FileError : public std::system_error {
public:
    /// `call` is the operation ("open"), for `what()`; `path` is the item it failed on.
    FileError(int errorNumber, const std::string& call, std::filesystem::path path);

    const std::filesystem::path& path() const { return path_; }

    /// The operating system's own text for the error, in UTF-8: "Permission denied".
    std::string localizedDescription() const;

private:
    std::filesystem::path path_;
};

/// One entry of a listing. `name` is valid only during the visit.
struct DirectoryEntry {
    std::string_view name;                ///< bytes as on disk, never "." or ".."
    std::optional<bool> isDirectory;      ///< of the entry itself: false for a link; absent when unknown
    std::optional<std::int64_t> fileSize; ///< bytes of the entry itself; absent for a folder and when unknown
};

/// Identifies an item on disk. It stays the same when the item is moved, and changes when the item is replaced.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// An item on disk at one moment.
struct FileState {
    FileIdentity identity;
    std::uint32_t kind = 0;               ///< stands for file, folder, link and so on
    std::int64_t size = 0;                ///< bytes; 0 for a folder
    std::int64_t modified = 0;            ///< whole seconds since 1970; any date is possible
    std::int64_t modifiedNanoseconds = 0; ///< the rest of that time
    std::uint64_t changed = 0;            ///< stands for the moment at which anything about the item last changed

    /// Unequal when the item has been replaced or written to, but not when only its other attributes have changed.
    friend bool operator==(const FileState& one, const FileState& other) {
        return one.identity == other.identity && one.size == other.size && one.modified == other.modified &&
               one.modifiedNanoseconds == other.modifiedNanoseconds;
    }
    friend bool operator==(const FileState& state, const FileIdentity& other) { return state.identity == other; }

    /// Whether only the number has changed. User-space file systems may number an item anew once the system has
    /// forgotten it.
    bool isRenumbered(FileState later) const {
        later.identity.inode = identity.inode;
        return *this == later && kind == later.kind && changed == later.changed;
    }
};

/// The bytes of a whole file.
struct FileContents {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;

    operator std::string_view() const { return {bytes.get(), size}; }
};

enum class LinkPolicy { follow, refuse };

/// Whether a listing includes the sizes of files, which takes a call for each.
enum class Sizes { ask, skip };

/// The program's only access to the disk. Paths are bytes; a path that contains a NUL byte or is longer than the
/// system allows names nothing and is never cut off. Each call handles a whole item, leaves no handle open and may come
/// from any thread.
class FileManager {
public:
    using Visitor = std::function<void(const DirectoryEntry&)>;

    /// Takes the next part of a file; the part is valid only during the call.
    using PartWriter = std::function<void(std::string_view part)>;

    /// Passes the contents of a new file to `write`, part by part and in order, each time it is called.
    using ContentsWriter = std::function<void(const PartWriter& write)>;

    FileManager() = default;
    FileManager(const FileManager&) = delete;
    FileManager& operator=(const FileManager&) = delete;
    virtual ~FileManager() = default;

    /// Visits the entries of a folder, one level deep, in the file system's order, without hidden ones (a leading dot).
    /// With `LinkPolicy::refuse` a path whose last component is a link is not a folder. An entry that vanishes
    /// meanwhile is visited without a size. Throws FileError when the folder cannot be opened or the listing fails
    /// halfway. In the latter case entries have been visited, which the caller must discard.
    virtual void contentsOfDirectory(const std::filesystem::path& folder, LinkPolicy links, Sizes sizes,
                                     const Visitor& visit) const = 0;

    /// Whether anything is at `path`, dangling links included. False when that cannot be determined.
    virtual bool fileExists(const std::filesystem::path& path) const = 0;

    /// What is at `path` itself, links not followed; absent when nothing is there. Throws FileError when that cannot be
    /// determined.
    virtual std::optional<FileState> state(const std::filesystem::path& path) const = 0;

    /// All bytes of the regular file at `path`, links followed; absent when it cannot be read, ends before the size it
    /// had, is larger than a quarter of the machine's memory (if that is known), or is a pipe, a device, a socket or a
    /// folder. These are never read or waited for, and only opened when they replace a file at the moment of the call.
    /// Throws only std::bad_alloc.
    virtual std::optional<FileContents> contents(const std::filesystem::path& path) const = 0;

    /// Creates the file `path` with `contents` and mode 0666 minus the umask, durably: when this returns its state,
    /// the bytes and the name are on disk, as far as the file system can guarantee that. The file appears whole or not
    /// at all and replaces nothing (see moveItem). An absent result means that it was not created, or could not be made
    /// durable and was removed again. Only if that removal fails does a whole file stay. `contents` is called once for
    /// each attempt to write the file; what it throws leaves this call, and the file is then not created.
    virtual std::optional<FileState> createFile(const std::filesystem::path& path, const ContentsWriter& contents) = 0;

    /// Moves an item within one file system and flushes both folders as far as possible. Never replaces anything, not
    /// even an empty folder; where the file system cannot guarantee that, the destination is checked just before. An
    /// item whose identity is not `onlyIf` is left alone (EBUSY). Throws FileError, and the item is then where it was,
    /// unless a network drive moved it but lost the replies to the move and to the check that follows a failure.
    virtual void moveItem(const std::filesystem::path& from, const std::filesystem::path& to,
                          const FileIdentity& onlyIf) = 0;

    /// Removes the file or link at `path` itself, never a folder or the target of a link, and flushes its folder as far
    /// as possible. An item whose state is not `onlyIf` is left alone (EBUSY). Throws FileError when it cannot be
    /// removed.
    virtual void removeItem(const std::filesystem::path& path, const FileState& onlyIf) = 0;
};

/// The real disk, accessed through POSIX calls and, where the guarantees need them, Linux ones.
std::shared_ptr<FileManager> makePosixFileManager();

} // namespace tarvolt
