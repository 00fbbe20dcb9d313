#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvolt::testing {

/// A system call as it was made.
struct SystemCall {
    int number = 0; ///< SYS_...
    std::array<std::uint64_t, 6> arguments{};

    /// An argument that points to text.
    std::string text(std::size_t argument) const;
};

/// What the caller is told instead of the kernel's answer: a result, or a negative error number. Absent: the kernel is
/// asked after all.
using CallAnswer = std::function<std::optional<long>(const SystemCall&)>;

/// Runs `body` on a thread of its own whose system calls of these numbers are answered by `answer`, on the calling
/// thread, in the same address space and with the same descriptors. Nothing else of the process is touched. Returns why
/// this system cannot do that (`body` has then not run), or nothing.
std::optional<std::string> withCallsAnswered(const std::vector<int>& numbers, const CallAnswer& answer,
                                             const std::function<void()>& body);

/// Whether the call asks for the status of an open file, which C libraries do by SYS_fstat or by SYS_newfstatat.
bool isStatusOfOpenFile(const SystemCall& call);

/// Answers every call with this error.
CallAnswer refuseWith(int errorNumber);

/// The answer to getdents64 of a file system that does not say in its listing what an entry is.
long listingWithoutKinds(const SystemCall& call);

} // namespace tarvolt::testing
