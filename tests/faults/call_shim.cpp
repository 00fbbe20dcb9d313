// Preloaded into a program by LD_PRELOAD. TARVOLT_SHIM says what it does, in words separated by commas:
//
//   stop             print the next call on standard error and stop until the driver continues the process
//   no-memory=N      refuse allocation number N after the program has flushed its output, and say so on standard error
//   short            transfer at most a few bytes in one read or write, as happens after a signal or with a full pipe
//   no-unnamed       imitate a file system without unnamed files,
//   no-naming        ... that cannot name unnamed files,
//   no-links         ... without hard links,
//   no-flag          ... without moves that replace nothing,
//   no-sync          ... that cannot flush
//
// and faults that the program does not have, so that the drivers can show that they find them:
//
//   no-fsync         do not flush, but report success
//   replacing-move   move without the flag that forbids replacing
//   lying-write      write half, but report all
//   blind-identity   take whatever is at a path for the file just written
//   deaf-sync        report success when a flush failed
//   deaf-removal     report success when a removal failed
//   deaf-listing     report the end of a listing when it failed
//   early-name       give the new file its name before it is written
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

/// No word is a part of another. Allocates nothing, because allocations may be counted.
bool asked(const char* word) {
    const char* words = std::getenv("TARVOLT_SHIM");
    return words != nullptr && std::strstr(words, word) != nullptr;
}

template<class Call> Call real(const char* name) {
    return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

void before(const char* call, const char* path = "") {
    static const bool stops = asked("stop");
    if (stops) {
        dprintf(STDERR_FILENO, "%s %s\n", call, path);
        std::raise(SIGSTOP);
    }
}

size_t carried(size_t count) {
    static const bool isShort = asked("short");
    static size_t turn = 0;
    return isShort ? std::min<size_t>(count, 1 + turn++ % 7) : count;
}

struct stat lastWritten {};
long allocationsLeft = 0; // until one is refused; 0 when none is

int refuse(int error) {
    errno = error;
    return -1;
}

} // namespace

extern "C" {

void* __libc_malloc(size_t size); // NOLINT(*-identifier*): the name is the C library's

void* malloc(size_t size) {
    if (allocationsLeft > 0 && --allocationsLeft == 0) {
        dprintf(STDERR_FILENO, "refused\n");
        return nullptr;
    }
    return __libc_malloc(size);
}

int fflush(FILE* file) {
    const char* word = std::strstr(std::getenv("TARVOLT_SHIM"), "no-memory=");
    allocationsLeft = word != nullptr ? std::atol(std::strchr(word, '=') + 1) : 0;
    return real<int (*)(FILE*)>("fflush")(file);
}

ssize_t read(int file, void* bytes, size_t count) {
    before("read");
    return real<ssize_t (*)(int, void*, size_t)>("read")(file, bytes, carried(count));
}

ssize_t write(int file, const void* bytes, size_t count) {
    before("write");
    static const bool lies = asked("lying-write");
    const auto done =
        real<ssize_t (*)(int, const void*, size_t)>("write")(file, bytes, carried(lies ? count / 2 : count));
    return lies && done >= 0 ? static_cast<ssize_t>(count) : done;
}

int fsync(int file) {
    before("fsync");
    static const bool skips = asked("no-fsync");
    static const bool isRefused = asked("no-sync");
    static const bool isDeaf = asked("deaf-sync");
    if (isRefused) {
        return refuse(EINVAL);
    }
    const int result = skips ? 0 : real<int (*)(int)>("fsync")(file);
    return isDeaf ? 0 : result;
}

int open(const char* path, int flags, ...) {
    before("open", path);
    return real<int (*)(const char*, int, ...)>("open")(path, flags);
}

int openat(int folder, const char* path, int flags, ...) {
    before("openat", path);
    static const bool isRefused = asked("no-unnamed");
    static const bool isEarly = asked("early-name");
    if ((flags & O_TMPFILE) == O_TMPFILE && isRefused) {
        return refuse(EOPNOTSUPP);
    }
    if ((flags & O_TMPFILE) == O_TMPFILE && isEarly) {
        return real<int (*)(int, const char*, int, ...)>("openat")(folder, "Dawn.xpj", O_CREAT | O_WRONLY, 0666);
    }
    return real<int (*)(int, const char*, int, ...)>("openat")(folder, path, flags, 0666);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    before("linkat", to);
    static const bool refusesNaming = asked("no-naming");
    static const bool refusesLinks = asked("no-links");
    static const bool isEarly = asked("early-name");
    if (isEarly) {
        return 0;
    }
    if (refusesNaming && std::strncmp(from, "/proc/", 6) == 0) {
        return refuse(ENOENT);
    }
    if (refusesLinks) {
        return refuse(EPERM);
    }
    return real<int (*)(int, const char*, int, const char*, int)>("linkat")(fromFolder, from, toFolder, to, flags);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    before("renameat2", to);
    static const bool replaces = asked("replacing-move");
    static const bool isRefused = asked("no-flag");
    if (isRefused && flags != 0) {
        return refuse(EINVAL);
    }
    return real<int (*)(int, const char*, int, const char*, unsigned)>("renameat2")(fromFolder, from, toFolder, to,
                                                                                    replaces ? 0 : flags);
}

ssize_t getdents64(int folder, void* items, size_t size) {
    before("getdents64");
    static const bool isDeaf = asked("deaf-listing");
    const auto done = real<ssize_t (*)(int, void*, size_t)>("getdents64")(folder, items, size);
    return isDeaf && done < 0 ? 0 : done;
}

int unlinkat(int folder, const char* path, int flags) {
    before("unlinkat", path);
    static const bool isDeaf = asked("deaf-removal");
    const int result = real<int (*)(int, const char*, int)>("unlinkat")(folder, path, flags);
    return isDeaf ? 0 : result;
}

int stat(const char* path, struct stat* status) {
    before("stat", path);
    return real<int (*)(const char*, struct stat*)>("stat")(path, status);
}

int lstat(const char* path, struct stat* status) {
    before("lstat", path);
    return real<int (*)(const char*, struct stat*)>("lstat")(path, status);
}

int fstat(int file, struct stat* status) {
    before("fstat");
    const int result = real<int (*)(int, struct stat*)>("fstat")(file, status);
    lastWritten = *status;
    return result;
}

int fstatat(int folder, const char* path, struct stat* status, int flags) {
    before("fstatat", path);
    static const bool blind = asked("blind-identity");
    const int result = real<int (*)(int, const char*, struct stat*, int)>("fstatat")(folder, path, status, flags);
    if (blind && result == 0) {
        *status = lastWritten;
    }
    return result;
}
}
