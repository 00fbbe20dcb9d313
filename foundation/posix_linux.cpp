// Calls that Linux has and POSIX lacks. CMake checks for each. Where one is missing, its function uses what POSIX has
// or fails as on a file system without support, which the callers handle.
#include "foundation/posix_calls.h"

#include <dirent.h>
#include <fcntl.h>

#include <array>
#include <cstdio>
#include <limits>
#include <memory>

namespace tarvolt::posix {

int openForNames(const char* folder) {
#ifdef TARVOLT_HAS_O_PATH
    return ::open(folder, O_PATH | O_DIRECTORY | O_CLOEXEC);
#else
    return ::open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
#endif
}

bool listNames(Descriptor& folder, const std::function<void(const char* name, std::optional<bool> isFolder)>& visit) {
#ifdef TARVOLT_HAS_GETDENTS64
    // The C library's fdopendir would make three more calls and allocate a buffer of this size.
    alignas(dirent64) std::array<char, 32768> items;
    for (;;) {
        const auto length = uninterrupted([&] { return ::getdents64(folder.number(), items.data(), items.size()); });
        if (length <= 0) {
            return length == 0;
        }
        for (const char* at = items.data(); at < items.data() + length;) {
            const auto& item = *reinterpret_cast<const dirent64*>(at);
            visit(item.d_name, item.d_type == DT_UNKNOWN ? std::nullopt : std::optional(item.d_type == DT_DIR));
            at += item.d_reclen;
        }
    }
#else
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::fdopendir(folder.number()), ::closedir);
    if (!listing) {
        return false;
    }
    folder.release();
    for (;;) {
        errno = 0; // at the end of the listing it stays 0
        if (const dirent* item = ::readdir(listing.get())) {
            visit(item->d_name, std::nullopt);
        } else if (errno != EINTR) {
            return errno == 0;
        }
    }
#endif
}

int openUnnamed([[maybe_unused]] int folder, [[maybe_unused]] mode_t mode) {
#ifdef TARVOLT_HAS_O_TMPFILE
    return ::openat(folder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
#else
    errno = ENOTSUP;
    return -1;
#endif
}

int nameUnnamed(int file, int folder, const char* name) {
    const std::string self = "/proc/self/fd/" + std::to_string(file);
    return ::linkat(AT_FDCWD, self.c_str(), folder, name, AT_SYMLINK_FOLLOW);
}

int moveWithoutReplacing(int fromFolder, const char* from, int toFolder, const char* to) {
#ifdef TARVOLT_HAS_RENAMEAT2
    if (::renameat2(fromFolder, from, toFolder, to, RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) {
        return -1;
    }
#endif
    // The system or the file system (FAT, network and user-space ones) has no such flag. A file or an empty folder that
    // appears at `to` between the check and the move is replaced: the gap cannot be made any smaller.
    if (stateAt(toFolder, to)) {
        errno = EEXIST;
        return -1;
    }
    return errno == ENOENT ? ::renameat(fromFolder, from, toFolder, to) : -1;
}

std::size_t quarterOfMemory() {
#ifdef TARVOLT_HAS_PHYS_PAGES
    // If the answer is -1, for unknown, the product is larger than any file, too.
    return static_cast<std::size_t>(::sysconf(_SC_PHYS_PAGES)) / 4 * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
#else
    return std::numeric_limits<std::size_t>::max() / 2;
#endif
}

} // namespace tarvolt::posix
