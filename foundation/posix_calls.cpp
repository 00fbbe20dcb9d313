#include "foundation/posix_calls.h"

#include <fcntl.h>

#include <climits>

namespace tarvolt::posix {

bool Descriptor::close() {
    const int number = release();
    // After EINTR the descriptor is closed all the same; closing it again could close another thread's.
    return number < 0 || ::close(number) == 0 || errno == EINTR;
}

bool holdsNul(const std::filesystem::path& path) {
    return path.native().find('\0') != std::string::npos;
}

bool synchronise(const Descriptor& descriptor) {
    if (uninterrupted([&] { return ::fsync(descriptor.number()); }) == 0) {
        return true;
    }
    return errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}

FileState stateOf(const struct stat& status) {
    const auto size = S_ISDIR(status.st_mode) ? 0 : status.st_size;
    constexpr std::uint64_t nanoseconds = 1'000'000'000; // where this overflows, it still stands for one moment
    const auto changed = static_cast<std::uint64_t>(status.st_ctim.tv_sec) * nanoseconds +
                         static_cast<std::uint64_t>(status.st_ctim.tv_nsec);
    return {{status.st_dev, status.st_ino}, status.st_mode & S_IFMT, size,
            status.st_mtim.tv_sec,          status.st_mtim.tv_nsec,  changed};
}

std::optional<FileState> stateAt(int folder, const char* name) {
    struct stat status {};
    return ::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0 ? std::optional(stateOf(status)) : std::nullopt;
}

Place::Place(const std::filesystem::path& path, const char* call) {
    const std::string& bytes = path.native();
    if (holdsNul(path)) {
        throw FileError(EINVAL, call, path);
    }
    if (bytes.size() >= PATH_MAX) {
        // The calls below would accept the name alone, but afterwards no program could open the item by its path.
        throw FileError(ENAMETOOLONG, call, path);
    }
    const auto slash = bytes.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : bytes.substr(0, slash + 1);
    name_ = bytes.substr(slash == std::string::npos ? 0 : slash + 1);
    folder_ = Descriptor(uninterrupted([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!folder_ && errno == EACCES) {
        // Names can be created and removed in a folder even where listing it is forbidden.
        isReadable_ = false;
        folder_ = Descriptor(uninterrupted([&] { return openForNames(folder.c_str()); }));
    }
    if (!folder_) {
        throw FileError(errno, call, path);
    }
}

bool Place::synchroniseFolder() const {
    return !isReadable_ || synchronise(folder_);
}

} // namespace tarvolt::posix
