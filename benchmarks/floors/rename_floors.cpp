#include "benchmarks/floors/calls.h"
#include "benchmarks/floors/floors.h"
#include "benchmarks/operations.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>

namespace tarvolt::benchmarks {

namespace {

/// Only the checks that UTF-8 cannot do without: lead bytes, continuation bytes, overlong forms, surrogates, the end.
bool isUtf8(std::string_view text) {
    const auto isAscii = [&](std::size_t at) {
        std::uint64_t word = 0;
        if (at + sizeof word > text.size()) {
            return false;
        }
        std::memcpy(&word, text.data() + at, sizeof word);
        return (word & 0x8080808080808080U) == 0;
    };
    for (std::size_t at = 0; at < text.size();) {
        while (isAscii(at)) {
            at += sizeof(std::uint64_t);
        }
        const auto byte = [&](std::size_t index) {
            return at + index < text.size() ? static_cast<std::uint8_t>(text[at + index]) : 0U;
        };
        const unsigned lead = byte(0);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        const unsigned least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
        const unsigned most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
        if ((lead >= 0x80 && lead < 0xC2) || lead > 0xF4 || (length > 1 && (byte(1) < least || byte(1) > most)) ||
            (length > 2 && (byte(2) & 0xC0) != 0x80) || (length > 3 && (byte(3) & 0xC0) != 0x80)) {
            return false;
        }
        at += length;
    }
    return true;
}

void writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        bytes.remove_prefix(static_cast<std::size_t>(succeed(::write(file, bytes.data(), bytes.size()), "write")));
    }
}

void writeReplaced(int file, std::string_view text, const std::string& from, const std::string& to) {
    constexpr std::size_t windowSize = std::size_t{256} * 1024;
    std::string window;
    window.reserve(windowSize);
    const auto add = [&](std::string_view part) {
        if (window.size() + part.size() > windowSize) {
            writeAll(file, std::exchange(window, std::string()));
            window.reserve(windowSize);
        }
        part.size() > windowSize ? writeAll(file, part) : void(window.append(part));
    };
    while (const void* found = ::memmem(text.data(), text.size(), from.data(), from.size())) {
        const auto before = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
        add(text.substr(0, before));
        add(to);
        text.remove_prefix(before + from.size());
    }
    add(text);
    writeAll(file, window);
}

/// The names of a project's file and folder.
struct Names {
    explicit Names(const std::string& project) : file(project + ".xpj"), data(project + std::string(tail)) {}
    std::string file;
    std::string data;
};

/// Writes the text of an open file to `created`, with the references to `from` replaced.
void rewrite(int old, int created, const Names& from, const Names& to) {
    struct stat status {};
    succeed(::fstat(old, &status), "fstat");
    const auto size = static_cast<std::size_t>(status.st_size);
    const std::unique_ptr<char[]> bytes(new char[size]);
    for (std::size_t at = 0; at < size;) {
        at += static_cast<std::size_t>(succeed(::read(old, bytes.get() + at, size - at), "read"));
    }
    ::close(old);
    const std::string_view text(bytes.get(), size);
    if (isUtf8(text)) {
        writeReplaced(created, text, from.data, to.data);
    }
}

void move(int folder, const Names& from, const Names& to) {
    succeed(::renameat2(folder, from.data.c_str(), folder, to.data.c_str(), RENAME_NOREPLACE), "renameat2");
}

void renameOnce(int folder, const Names& from, const Names& to, bool flushes) {
    const auto flush = [&](int descriptor) { succeed(flushes ? ::fsync(descriptor) : 0, "fsync"); };
    const int old = openAt(folder, from.file.c_str(), O_RDONLY);
    const int created = openAt(folder, to.file.c_str(), O_WRONLY | O_CREAT | O_EXCL);
    rewrite(old, created, from, to);
    flush(created);
    ::close(created);
    move(folder, from, to);
    flush(folder);
    succeed(::unlinkat(folder, from.file.c_str(), 0), "unlinkat");
    flush(folder);
}

void look(int folder, const std::string& name) {
    struct stat status {};
    succeed(::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW), "fstatat");
}

int openFolder(const std::string& folder) {
    return openAt(AT_FDCWD, folder.c_str(), O_RDONLY | O_DIRECTORY);
}

void flushAndClose(int descriptor) {
    succeed(::fsync(descriptor), "fsync");
    ::close(descriptor);
}

/// The same, but keeps the promises of docs/project-on-disk.md. No folder stays open between two steps.
void renameCarefully(const std::string& folder, const Names& from, const Names& to) {
    const std::string start = folder + "/";
    struct stat status {};
    // What is there now? Only that may be moved and removed.
    ::fstatat(AT_FDCWD, (start + to.file).c_str(), &status, AT_SYMLINK_NOFOLLOW);
    look(AT_FDCWD, start + from.file);
    look(AT_FDCWD, start + from.data);
    // Read nothing but a regular file, and all of it.
    succeed(::stat((start + from.file).c_str(), &status), "stat");
    const int old = openAt(AT_FDCWD, (start + from.file).c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY);
    ::sysconf(_SC_PHYS_PAGES);
    // The new file appears whole or not at all, and is known again.
    const int place = openFolder(folder);
    const int created = openAt(place, ".", O_TMPFILE | O_WRONLY);
    rewrite(old, created, from, to);
    succeed(::fsync(created), "fsync");
    ::close(::fcntl(created, F_DUPFD_CLOEXEC, 0));
    succeed(::fstat(created, &status), "fstat");
    const std::string unnamed = "/proc/self/fd/" + std::to_string(created);
    succeed(::linkat(AT_FDCWD, unnamed.c_str(), place, to.file.c_str(), AT_SYMLINK_FOLLOW), "linkat");
    look(place, to.file);
    flushAndClose(place);
    ::close(created);
    // The folder that was seen is moved.
    const int moved = openFolder(folder);
    look(moved, from.data);
    move(moved, from, to);
    flushAndClose(moved);
    // The file that was seen is removed, if both are still what they were.
    look(AT_FDCWD, start + to.file);
    const int last = openFolder(folder);
    look(last, from.file);
    succeed(::unlinkat(last, from.file.c_str(), 0), "unlinkat");
    flushAndClose(last);
}

} // namespace

void renameFloor(benchmark::State& state, const std::string& folder, bool flushes) {
    const int descriptor = openFolder(folder);
    renameThereAndBack(state, [&](const std::string& from, const std::string& to) {
        renameOnce(descriptor, Names(from), Names(to), flushes);
    });
    ::close(descriptor);
}

void carefulRenameFloor(benchmark::State& state, const std::string& folder) {
    renameThereAndBack(state, [&](const std::string& from, const std::string& to) {
        renameCarefully(folder, Names(from), Names(to));
    });
}

void renameOfTwoFormsFloor(benchmark::State& state, const std::string& folder) {
    const int descriptor = openFolder(folder);
    renameAnew(state, folder, [&](const std::string& from, const std::string& to) {
        renameOnce(descriptor, Names(from), Names(to), false);
    });
    ::close(descriptor);
}

} // namespace tarvolt::benchmarks
