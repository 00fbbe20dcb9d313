#include "foundation/posix_calls.h"
#include "foundation/uuid.h"

#include <fcntl.h>

namespace tarvolt::posix {
namespace {

constexpr mode_t newFileMode = 0666; // the kernel subtracts the umask
constexpr std::size_t windowSize = std::size_t{256} * 1024;

/// A file being written in the folder of its place, without a name or under a hidden one. When the draft is destroyed
/// the file is gone, unless it was given its name.
class Draft {
public:
    enum class Kind { unnamed, hidden };

    Draft(const Place& place, Kind kind) : place_(place) {
        if (kind == Kind::unnamed) {
            file_ = Descriptor(uninterrupted([&] { return openUnnamed(place.folder(), newFileMode); }));
        } else {
            constexpr std::uint64_t leastLongNumber = 1'000'000'000'000'000'000; // all names have the same length
            const auto number = leastLongNumber + std::hash<UUID>{}(UUID::random()) % leastLongNumber;
            hiddenName_ = ".tarvolt-" + std::to_string(number);
            constexpr int flags = O_CREAT | O_EXCL | O_NOFOLLOW | O_WRONLY | O_CLOEXEC;
            file_ = Descriptor(
                uninterrupted([&] { return ::openat(place.folder(), hiddenName_.c_str(), flags, newFileMode); }));
        }
        if (!file_) {
            hiddenName_.clear();
        }
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;
    ~Draft() { removeHiddenName(); }

    bool isOpen() const { return static_cast<bool>(file_); }

    /// Writes all of the contents and flushes them to disk. Throws FileError.
    void fill(const FileManager::ContentsWriter& contents);

    /// Gives the file the name of its place and returns its state under that name; absent when the name is taken or
    /// cannot be given.
    std::optional<FileState> giveName();

private:
    void write(std::string_view bytes);
    [[noreturn]] void fail(const char* call) const { throw FileError(errno, call, place_.name()); }
    bool link();
    bool closesWithoutLoss() const;
    void removeHiddenName();

    const Place& place_;
    Descriptor file_;
    std::string hiddenName_;
    FileState written_; ///< the file once it is filled
};

void Draft::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = uninterrupted([&] { return ::write(file_.number(), bytes.data(), bytes.size()); });
        if (written <= 0) {
            fail("write");
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void Draft::fill(const FileManager::ContentsWriter& contents) {
    std::string window; // collects small parts
    window.reserve(windowSize);
    contents([&](std::string_view part) {
        if (window.size() + part.size() > windowSize) {
            write(window);
            window.clear();
        }
        if (part.size() > windowSize) {
            write(part);
        } else {
            window.append(part);
        }
    });
    write(window);
    struct stat status {};
    if (!synchronise(file_) || !closesWithoutLoss() || ::fstat(file_.number(), &status) != 0) {
        fail("fsync");
    }
    written_ = stateOf(status);
}

bool Draft::closesWithoutLoss() const {
    // Without fsync, lost bytes may be reported only by close. A second descriptor is closed because the file itself
    // stays open: as long as it does, no other file can get its identity.
    Descriptor second(::fcntl(file_.number(), F_DUPFD_CLOEXEC, 0));
    return second && second.close();
}

std::optional<FileState> Draft::giveName() {
    const bool isLinked = link();
    const auto named = place_.state();
    FileState likeWritten = written_;
    if (isLinked && named) {
        // Some user-space file systems number names instead of files. There the rest of the state identifies the file.
        likeWritten.identity.inode = named->identity.inode;
        return named == likeWritten ? named : written_;
    }
    // A network drive can give the name and lose the reply.
    return isLinked || (named && named->identity == written_.identity) ? std::optional(written_) : std::nullopt;
}

bool Draft::link() {
    if (hiddenName_.empty()) {
        return nameUnnamed(file_.number(), place_.folder(), place_.name()) == 0;
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

void Draft::removeHiddenName() {
    // If this fails, the destructor tries once more; after that a hidden file stays, which no listing shows.
    if (!hiddenName_.empty() && ::unlinkat(place_.folder(), hiddenName_.c_str(), 0) == 0) {
        hiddenName_.clear();
    }
}

} // namespace

std::optional<FileState> createFile(const Place& place, const FileManager::ContentsWriter& contents) {
    // The hidden name is for file systems that cannot create unnamed files or cannot name them. They report that by
    // different errors; any other failure, such as a name that is taken, occurs again with the hidden name.
    for (const auto kind : {Draft::Kind::unnamed, Draft::Kind::hidden}) {
        Draft draft(place, kind);
        if (!draft.isOpen()) {
            continue;
        }
        draft.fill(contents);
        if (const auto created = draft.giveName()) {
            if (place.synchroniseFolder()) {
                return created;
            }
            if (place.holds(created->identity)) {
                ::unlinkat(place.folder(), place.name(), 0); // a failed creation leaves nothing behind if it can
            }
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace tarvolt::posix
