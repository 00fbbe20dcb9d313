#include "tests/support/small_disk.h"

#include "tests/support/temporary_folder.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <exception>
#include <system_error>
#include <thread>

namespace tarvolt::testing {

std::optional<std::string> withSmallDisk(std::size_t bytes,
                                         const std::function<void(const std::filesystem::path&)>& body) {
    const TemporaryFolder mountPoint;
    std::optional<std::string> refusal;
    std::exception_ptr failure;
    std::thread([&] {
        const auto options = "size=" + std::to_string(bytes);
        if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", mountPoint.path().c_str(), "tmpfs", 0, options.c_str()) != 0) {
            refusal = std::string("this user can mount no file system of its own: ") + std::strerror(errno);
            return;
        }
        try {
            body(mountPoint.path());
        } catch (...) {
            failure = std::current_exception();
        }
    }).join();
    if (failure) {
        std::rethrow_exception(failure);
    }
    return refusal;
}

void withLimitedFileSize(std::size_t bytes, const std::function<void()>& body) {
    rlimit before{};
    if (::getrlimit(RLIMIT_FSIZE, &before) != 0) {
        throw std::system_error(errno, std::system_category(), "getrlimit");
    }
    // Without this, the limit's signal would end the process before the call fails.
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limited{bytes, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limited);
    body();
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
}

} // namespace tarvolt::testing
