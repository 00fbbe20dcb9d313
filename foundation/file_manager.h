#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace tarvolt {

/// `folder` with one component more, byte for byte; the path type's own joining reads a meaning into some names.
std::filesystem::path appending(const std::filesystem::path& folder, std::string_view component);

/// Why a file operation failed, for a person to read. `code()` is the operating system's error.
class FileError : public std::system_error {
public:
    /// `call` names the operation in English ("open"), `path` the item it was made on.
    FileError(int errorNumber, std::string call, std::filesystem::path path);

    const std::string& call() const { return call_; }
    const std::filesystem::path& path() const { return path_; }

    /// The operating system's own text for the error, in UTF-8: "Permission denied".
    std::string localizedDescription() const;

private:
    std::string call_;
    std::filesystem::path path_;
};

/// One entry of a listing. The views are valid during the visit only.
struct DirectoryEntry {
    std::string_view name;                ///< bytes as on disk, never "." or ".."
    std::optional<bool> isDirectory;      ///< of the entry itself, a link is none; absent when it cannot be told
    std::optional<std::int64_t> fileSize; ///< bytes of the entry itself; absent for a folder and when it cannot be read
};

/// Which item on disk something is; it outlives a move of the item and not its replacement.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// An item on disk as it was at one moment; another once the item is replaced or written to.
struct FileState {
    FileIdentity identity;
    std::int64_t size = 0;                ///< bytes
    std::int64_t modified = 0;            ///< whole seconds since 1970; a file may bear any date
    std::int64_t modifiedNanoseconds = 0; ///< and so much more

    friend bool operator==(const FileState&, const FileState&) = default;
};

enum class LinkPolicy { follow, refuse };

/// The seam between the program and the disk. Paths are bytes; one that holds a NUL byte names nothing and is never
/// cut. All calls are whole-item, leave no handle open, and may come from any thread.
class FileManager {
public:
    using Visitor = std::function<void(const DirectoryEntry&)>;

    FileManager() = default;
    FileManager(const FileManager&) = delete;
    FileManager& operator=(const FileManager&) = delete;
    virtual ~FileManager() = default;

    /// Visits the entries of a folder, one level, in the order of the file system, hidden ones (a leading dot) left
    /// out. With `LinkPolicy::refuse` a path whose last component is a link is no folder. An entry that vanishes in
    /// between is visited without a size. Throws FileError when the folder cannot be opened and also when the listing
    /// breaks off; some entries may then have been visited, and the caller must forget them.
    virtual void contentsOfDirectory(const std::filesystem::path& folder, LinkPolicy links,
                                     const Visitor& visit) const = 0;

    /// Whether anything at all is at `path`, a dangling link included. False when that cannot be told.
    virtual bool fileExists(const std::filesystem::path& path) const = 0;

    /// What is at `path` itself, a link not followed; absent when that cannot be told.
    virtual std::optional<FileState> state(const std::filesystem::path& path) const = 0;

    /// The whole bytes of the regular file at `path`, links followed; absent when it cannot be read, or is a pipe, a
    /// device, a socket or a folder. None of these is read or waited for, and none opened but one that takes the place
    /// of a file at that moment. Throws std::bad_alloc only.
    virtual std::optional<std::string> contents(const std::filesystem::path& path) const = 0;

    /// Makes the file `path` with `contents` and mode 0666 less the umask, durably: when this returns an identity, the
    /// bytes and the name are on the disk as far as the file system can promise it. The file appears whole or not at
    /// all and replaces nothing (as moveItem). Absent result: it was not made, or could not be made durable and was
    /// removed again; only where that removal fails too, it stays, whole.
    virtual std::optional<FileIdentity> createFile(const std::filesystem::path& path, std::string_view contents) = 0;

    /// Moves an item within one file system and makes both folders durable as far as they allow. Never replaces
    /// anything, an empty folder included; where the file system cannot promise that, what is there a moment before is
    /// looked for. With `onlyIf`, an item of another identity is left alone (EBUSY). Throws FileError; the item is then
    /// where it was, unless a network drive moved it and lost its answer and that to the question where it is.
    virtual void moveItem(const std::filesystem::path& from, const std::filesystem::path& to,
                          std::optional<FileIdentity> onlyIf = std::nullopt) = 0;

    /// Removes the file or link at `path` itself, never a folder nor what a link leads to, and makes its folder durable
    /// as far as it allows. With `onlyIf`, an item of another identity is left alone (EBUSY). Throws FileError when
    /// it cannot be removed.
    virtual void removeItem(const std::filesystem::path& path, std::optional<FileIdentity> onlyIf = std::nullopt) = 0;
};

} // namespace tarvolt
