// Put between the program and the C library by LD_PRELOAD: a call that concerns a folder waits in the kernel, as it
// does on a dead network drive, while the driver holds it. What it waits for is a pipe in that folder:
//
//   .hold-listing   listing the folder
//   .hold-fsync     bringing a file of the folder, or the folder itself, to the disk
//
// Delaying the call by a tracer would not do: the process is then kept from ending until the delay is over.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <linux/limits.h>
#include <unistd.h>

#include <string>

namespace {

template<class Call> Call real(const char* name) {
    return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

std::string pathOf(int file) {
    char path[PATH_MAX];
    const auto length = readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), path, sizeof path);
    return {path, length < 0 ? 0 : static_cast<std::size_t>(length)};
}

/// Opening the pipe waits for the driver to open its other end, reading from it for the driver to close that.
void waitFor(const std::string& pipe) {
    const int file = open(pipe.c_str(), O_RDONLY | O_CLOEXEC);
    if (file >= 0) {
        char byte = 0;
        while (read(file, &byte, 1) > 0) {
        }
        close(file);
    }
}

} // namespace

extern "C" {

ssize_t getdents64(int folder, void* items, size_t size) {
    waitFor(pathOf(folder) + "/.hold-listing");
    return real<ssize_t (*)(int, void*, size_t)>("getdents64")(folder, items, size);
}

int fsync(int file) {
    const std::string path = pathOf(file);
    waitFor(path.substr(0, path.rfind('/')) + "/.hold-fsync");
    return real<int (*)(int)>("fsync")(file);
}
}
