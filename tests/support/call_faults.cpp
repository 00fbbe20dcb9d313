#include "tests/support/call_faults.h"

#include <dirent.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <exception>
#include <future>
#include <thread>

// Exported by ThreadSanitizer's runtime, and null without it. The names are the runtime's.
// NOLINTBEGIN(readability-identifier-naming)
extern "C" {
[[gnu::weak]] void AnnotateIgnoreReadsBegin(const char* file, int line);
[[gnu::weak]] void AnnotateIgnoreReadsEnd(const char* file, int line);
[[gnu::weak]] void AnnotateIgnoreWritesBegin(const char* file, int line);
[[gnu::weak]] void AnnotateIgnoreWritesEnd(const char* file, int line);
}
// NOLINTEND(readability-identifier-naming)

namespace tarvolt::testing {
namespace {

/// While it lives, this thread's reads and writes are not races: the other thread waits in the kernel for its answer,
/// which ThreadSanitizer cannot see.
class WhileTheOtherWaits {
public:
    WhileTheOtherWaits() {
        if (AnnotateIgnoreReadsBegin != nullptr) {
            AnnotateIgnoreReadsBegin(__FILE__, __LINE__);
            AnnotateIgnoreWritesBegin(__FILE__, __LINE__);
        }
    }
    WhileTheOtherWaits(const WhileTheOtherWaits&) = delete;
    WhileTheOtherWaits& operator=(const WhileTheOtherWaits&) = delete;
    ~WhileTheOtherWaits() {
        if (AnnotateIgnoreReadsEnd != nullptr) {
            AnnotateIgnoreWritesEnd(__FILE__, __LINE__);
            AnnotateIgnoreReadsEnd(__FILE__, __LINE__);
        }
    }
};

/// Installs a filter on the calling thread that reports the given calls. Returns the listener's descriptor, or -1.
int reportCalls(const std::vector<int>& numbers) {
    std::vector<sock_filter> program{{BPF_LD | BPF_W | BPF_ABS, 0, 0, offsetof(seccomp_data, nr)}};
    for (const int number : numbers) {
        program.push_back({BPF_JMP | BPF_JEQ | BPF_K, 0, 1, static_cast<std::uint32_t>(number)});
        program.push_back({BPF_RET | BPF_K, 0, 0, SECCOMP_RET_USER_NOTIF});
    }
    program.push_back({BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW});
    const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
        return -1;
    }
    return static_cast<int>(::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &filter));
}

SystemCall described(const seccomp_notif& notice) {
    SystemCall call;
    call.number = notice.data.nr;
    for (std::size_t at = 0; at < call.arguments.size(); ++at) {
        call.arguments[at] = notice.data.args[at];
    }
    return call;
}

/// Answers calls until the thread behind the listener has ended.
void answerCalls(int listener, const CallAnswer& answer) {
    pollfd waiting{listener, POLLIN, 0};
    while (::poll(&waiting, 1, -1) >= 0 || errno == EINTR) {
        if ((waiting.revents & POLLIN) == 0) {
            if ((waiting.revents & POLLHUP) != 0) {
                return;
            }
            continue;
        }
        seccomp_notif notice{};
        if (::ioctl(listener, SECCOMP_IOCTL_NOTIF_RECV, &notice) != 0) {
            continue;
        }
        const WhileTheOtherWaits waits;
        seccomp_notif_resp response{};
        response.id = notice.id;
        if (const auto result = answer(described(notice)); !result) {
            response.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
        } else if (*result < 0) {
            response.error = static_cast<int>(*result);
        } else {
            response.val = *result;
        }
        ::ioctl(listener, SECCOMP_IOCTL_NOTIF_SEND, &response);
    }
}

} // namespace

std::string SystemCall::text(std::size_t argument) const {
    return reinterpret_cast<const char*>(arguments.at(argument)); // NOLINT(performance-no-int-to-ptr): our own memory
}

std::optional<std::string> withCallsAnswered(const std::vector<int>& numbers, const CallAnswer& answer,
                                             const std::function<void()>& body) {
    std::promise<std::pair<int, int>> ready;
    std::exception_ptr failure;
    std::thread thread([&] {
        const int listener = reportCalls(numbers);
        ready.set_value({listener, errno});
        if (listener < 0) {
            return;
        }
        try {
            body();
        } catch (...) {
            failure = std::current_exception();
        }
    });
    const auto [listener, error] = ready.get_future().get();
    if (listener >= 0) {
        answerCalls(listener, answer);
        ::close(listener);
    }
    thread.join();
    if (failure) {
        std::rethrow_exception(failure);
    }
    if (listener < 0) {
        return std::string("this kernel lets no program answer its own system calls: ") + std::strerror(error);
    }
    return std::nullopt;
}

bool isStatusOfOpenFile(const SystemCall& call) {
    return call.number == SYS_fstat || (call.number == SYS_newfstatat && call.text(1).empty());
}

CallAnswer refuseWith(int errorNumber) {
    return [errorNumber](const SystemCall&) { return std::optional<long>(-errorNumber); };
}

long listingWithoutKinds(const SystemCall& call) {
    auto* buffer = reinterpret_cast<char*>(call.arguments[1]); // NOLINT(performance-no-int-to-ptr)
    const long length = ::syscall(SYS_getdents64, call.arguments[0], buffer, call.arguments[2]);
    for (long at = 0; at < length;) {
        auto* item = reinterpret_cast<dirent64*>(buffer + at);
        item->d_type = DT_UNKNOWN;
        at += item->d_reclen;
    }
    return length;
}

} // namespace tarvolt::testing
