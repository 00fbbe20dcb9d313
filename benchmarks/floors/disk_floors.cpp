#include "benchmarks/floors/floors.h"
#include "benchmarks/operations.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace tarvolt::benchmarks {

namespace {

constexpr std::string_view tail = "_[ProjectData]";

/// The result of a call that must not fail.
template<class Result> Result succeed(Result result, const char* call) {
    if (result < 0) {
        std::perror(call);
        std::_Exit(1);
    }
    return result;
}

int openAt(int folder, const char* name, int flags) {
    return succeed(::openat(folder, name, flags | O_CLOEXEC, 0666), "openat");
}

template<class Visit> void forEachEntry(int folder, const Visit& visit) {
    alignas(dirent64) std::array<char, 65536> items;
    while (const auto length = succeed(::getdents64(folder, items.data(), items.size()), "getdents64")) {
        for (const char* at = items.data(); at < items.data() + length;) {
            const auto& item = *reinterpret_cast<const dirent64*>(at);
            if (item.d_name[0] != '.') {
                visit(item);
            }
            at += item.d_reclen;
        }
    }
}

std::int64_t sizeOf(int folder, const char* name) {
    struct stat status {};
    succeed(::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW), "fstatat");
    return status.st_size;
}

/// Only the checks that UTF-8 cannot do without: lead bytes, continuation bytes, overlong forms, surrogates, the end.
bool isUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        std::uint64_t word = 0;
        if (at + sizeof word <= text.size()) {
            std::memcpy(&word, text.data() + at, sizeof word);
            if ((word & 0x8080808080808080U) == 0) {
                at += sizeof word;
                continue;
            }
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

/// The sizes of the entries of a folder in `parent`.
std::int64_t sizeOfEntries(int parent, const char* name) {
    const int folder = openAt(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    std::int64_t total = 0;
    forEachEntry(folder, [&](const dirent64& item) { total += sizeOf(folder, item.d_name); });
    ::close(folder);
    return total;
}

/// The sizes of the projects in a folder.
std::int64_t scanOnce(const std::string& folder) {
    const int top = openAt(AT_FDCWD, folder.c_str(), O_RDONLY | O_DIRECTORY);
    std::vector<std::string> files;
    std::unordered_set<std::string> folders;
    forEachEntry(top, [&](const dirent64& item) {
        if (item.d_type == DT_DIR) {
            folders.emplace(item.d_name);
        } else {
            files.emplace_back(item.d_name);
        }
    });
    std::int64_t total = 0;
    for (const auto& file : files) {
        total += sizeOf(top, file.c_str());
        const auto found = folders.find(file.substr(0, file.size() - 4).append(tail));
        total += found == folders.end() ? 0 : sizeOfEntries(top, found->c_str());
    }
    ::close(top);
    return total;
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

void renameOnce(int folder, const std::string& from, const std::string& to, bool flushes) {
    const int old = openAt(folder, (from + ".xpj").c_str(), O_RDONLY);
    struct stat status {};
    succeed(::fstat(old, &status), "fstat");
    const auto size = static_cast<std::size_t>(status.st_size);
    const std::unique_ptr<char[]> bytes(new char[size]);
    for (std::size_t at = 0; at < size;) {
        at += static_cast<std::size_t>(succeed(::read(old, bytes.get() + at, size - at), "read"));
    }
    ::close(old);
    const std::string_view text(bytes.get(), size);
    const int created = openAt(folder, (to + ".xpj").c_str(), O_WRONLY | O_CREAT | O_EXCL);
    if (isUtf8(text)) {
        writeReplaced(created, text, from + std::string(tail), to + std::string(tail));
    }
    const auto flush = [&](int descriptor) { succeed(flushes ? ::fsync(descriptor) : 0, "fsync"); };
    flush(created);
    ::close(created);
    flush(folder);
    succeed(::renameat2(folder, (from + std::string(tail)).c_str(), folder, (to + std::string(tail)).c_str(),
                        RENAME_NOREPLACE),
            "renameat2");
    flush(folder);
    succeed(::unlinkat(folder, (from + ".xpj").c_str(), 0), "unlinkat");
    flush(folder);
}

} // namespace

void scanFloor(benchmark::State& state, const std::string& folder) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(scanOnce(folder));
    }
}

void renameFloor(benchmark::State& state, const std::string& folder, bool flushes) {
    const int descriptor = openAt(AT_FDCWD, folder.c_str(), O_RDONLY | O_DIRECTORY);
    std::string present = projectName;
    std::string absent = otherName;
    for (auto _ : state) {
        renameOnce(descriptor, present, absent, flushes);
        std::swap(present, absent);
    }
    if (present == otherName) {
        renameOnce(descriptor, present, absent, flushes);
    }
    ::close(descriptor);
}

} // namespace tarvolt::benchmarks
