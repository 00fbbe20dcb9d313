#include "foundation/posix_calls.h"
#include "foundation/uuid.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvolt::posix {
namespace {

constexpr mode_t newFileMode = 0666; // the kernel takes the umask away

/// A file being written in the folder of its place, under no name or under a hidden one. It is gone when the draft
/// ends, but for the name that it was given.
class Draft {
public:
    enum class Kind { unnamed, hidden };

    Draft(const Place& place, Kind kind) : place_(place) {
        const char* path = ".";
        int way = O_TMPFILE;
        if (kind == Kind::hidden) {
            hiddenName_ = ".tarvolt-" + UUID::random().uuidString();
            path = hiddenName_.c_str();
            way = O_CREAT | O_EXCL | O_NOFOLLOW;
        }
        file_ = Descriptor(
            uninterrupted([&] { return ::openat(place.folder(), path, way | O_WRONLY | O_CLOEXEC, newFileMode); }));
        if (!file_) {
            hiddenName_.clear();
        }
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;
    ~Draft() { removeHiddenName(); }

    bool isOpen() const { return static_cast<bool>(file_); }

    /// Writes the whole contents and brings them to the disk.
    bool fill(std::string_view contents);

    /// Gives the file the name of its place; false when that name is another item's or cannot be given.
    bool giveName();

    /// The identity that the file, now named, has under its name.
    FileIdentity identity() const;

private:
    bool link();
    bool closesWithoutLoss() const;
    void removeHiddenName();

    const Place& place_;
    Descriptor file_;
    std::string hiddenName_;
    struct stat written_ {}; ///< the file once it is filled
};

bool Draft::fill(std::string_view contents) {
    while (!contents.empty()) {
        const auto written = uninterrupted([&] { return ::write(file_.number(), contents.data(), contents.size()); });
        if (written <= 0) {
            return false;
        }
        contents.remove_prefix(static_cast<std::size_t>(written));
    }
    return synchronise(file_) && closesWithoutLoss() && ::fstat(file_.number(), &written_) == 0;
}

bool Draft::closesWithoutLoss() const {
    // Where there is no fsync, lost bytes may be told of only at a close. A second descriptor is closed, for the file
    // stays open: as long as it is, no other file can come to have its identity.
    Descriptor second(::fcntl(file_.number(), F_DUPFD_CLOEXEC, 0));
    return second && second.close();
}

bool Draft::giveName() {
    // A network drive can give the name and lose its answer.
    return link() || place_.identity() == FileIdentity{written_.st_dev, written_.st_ino};
}

bool Draft::link() {
    if (hiddenName_.empty()) {
        const std::string self = "/proc/self/fd/" + std::to_string(file_.number());
        return ::linkat(AT_FDCWD, self.c_str(), place_.folder(), place_.name(), AT_SYMLINK_FOLLOW) == 0;
    }
    if (::linkat(place_.folder(), hiddenName_.c_str(), place_.folder(), place_.name(), 0) == 0) {
        removeHiddenName();
        return true;
    }
    if (moveWithoutReplacing(place_.folder(), hiddenName_.c_str(), place_.folder(), place_.name()) != 0) {
        return false;
    }
    hiddenName_.clear();
    return true;
}

FileIdentity Draft::identity() const {
    const FileIdentity identity{written_.st_dev, written_.st_ino};
    struct stat named {};
    if (::fstatat(place_.folder(), place_.name(), &named, AT_SYMLINK_NOFOLLOW) != 0) {
        return identity;
    }
    // Some user-space file systems number names instead of files. There the file is known by what else it is.
    const bool isThisOne = named.st_dev == written_.st_dev && named.st_size == written_.st_size &&
                           named.st_mtim.tv_sec == written_.st_mtim.tv_sec &&
                           named.st_mtim.tv_nsec == written_.st_mtim.tv_nsec;
    return isThisOne ? FileIdentity{named.st_dev, named.st_ino} : identity;
}

void Draft::removeHiddenName() {
    // When this fails the destructor tries once more; after that a hidden file stays, which no listing shows.
    if (!hiddenName_.empty() && ::unlinkat(place_.folder(), hiddenName_.c_str(), 0) == 0) {
        hiddenName_.clear();
    }
}

} // namespace

std::optional<FileIdentity> createFile(const Place& place, std::string_view contents) {
    // The hidden way is for file systems that cannot make unnamed files or cannot name them. Which error they answer
    // with is not agreed on; any other reason, a name that is taken for one, is met again on the hidden way.
    for (const auto kind : {Draft::Kind::unnamed, Draft::Kind::hidden}) {
        Draft draft(place, kind);
        if (!draft.isOpen()) {
            continue;
        }
        if (!draft.fill(contents)) {
            return std::nullopt;
        }
        if (draft.giveName()) {
            const auto identity = draft.identity();
            if (place.synchroniseFolder()) {
                return identity;
            }
            if (place.identity() == identity) {
                ::unlinkat(place.folder(), place.name(), 0); // a failed creation leaves as little as it can
            }
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace tarvolt::posix
