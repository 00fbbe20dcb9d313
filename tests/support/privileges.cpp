#include "tests/support/privileges.h"

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <exception>
#include <system_error>
#include <thread>

namespace tarvolt::testing {

void withoutPrivileges(const std::function<void()>& body) {
    std::exception_ptr failure;
    std::thread([&] {
        try {
            // The system call itself changes only the calling thread.
            __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
            std::array<__user_cap_data_struct, 2> none{};
            if (::syscall(SYS_capset, &header, none.data()) != 0) {
                throw std::system_error(errno, std::system_category(), "capset");
            }
            body();
        } catch (...) {
            failure = std::current_exception();
        }
    }).join();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

} // namespace tarvolt::testing
