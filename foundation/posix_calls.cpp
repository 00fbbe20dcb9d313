#include "foundation/posix_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace tarvolt::posix {

bool Descriptor::close() {
    const int number = release();
    // After EINTR the descriptor is gone all the same; closing it again could hit one of another thread.
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

Place::Place(const std::filesystem::path& path, const char* call) {
    const std::string& bytes = path.native();
    if (holdsNul(path)) {
        throw FileError(EINVAL, call, path);
    }
    const auto slash = bytes.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : bytes.substr(0, slash + 1);
    name_ = bytes.substr(slash == std::string::npos ? 0 : slash + 1);
    const auto openFolder = [&](int access) {
        return uninterrupted([&] { return ::open(folder.c_str(), access | O_DIRECTORY | O_CLOEXEC); });
    };
    folder_ = Descriptor(openFolder(O_RDONLY));
    if (!folder_ && errno == EACCES) {
        // Names can be made and removed in a folder that must not be listed.
        isReadable_ = false;
        folder_ = Descriptor(openFolder(O_PATH));
    }
    if (!folder_) {
        throw FileError(errno, call, path);
    }
}

std::optional<FileIdentity> Place::identity() const {
    struct stat status {};
    if (::fstatat(folder(), name(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return std::nullopt;
    }
    return FileIdentity{status.st_dev, status.st_ino};
}

bool Place::holds(const std::optional<FileIdentity>& expected) const {
    if (!expected) {
        return true;
    }
    const auto found = identity();
    if (found && *found != *expected) {
        errno = EBUSY; // somebody else is at work here
    }
    return found == expected;
}

bool Place::synchroniseFolder() const {
    return !isReadable_ || synchronise(folder_);
}

int moveWithoutReplacing(int fromFolder, const char* from, int toFolder, const char* to) {
    if (::renameat2(fromFolder, from, toFolder, to, RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) {
        return -1;
    }
    // The file system knows no such flag (FAT, network and user-space ones). What comes to be at `to` between the look
    // and the move is replaced if it is a file or an empty folder: the narrowest gap such a file system allows.
    struct stat status {};
    if (::fstatat(toFolder, to, &status, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return -1;
    }
    return errno == ENOENT ? ::renameat(fromFolder, from, toFolder, to) : -1;
}

} // namespace tarvolt::posix
