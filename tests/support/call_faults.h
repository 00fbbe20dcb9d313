#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvolt::testing {

/// A system call and its arguments.
struct SystemCall {
    int number = 0; ///< SYS_...
    std::array<std::uint64_t, 6> arguments{};

    /// An argument that points to text.
    std::string text(std::size_t argument) const;
};

/// The answer to a call in the kernel's place: a result, or a negative error number. If absent, the kernel is
/// called after all.
using CallAnswer = std::function<std::optional<long>(const SystemCall&)>;

/// Runs `body` on a separate thread whose system calls of these numbers are answered by `answer`, on the calling
/// thread, in the same address space and with the same descriptors. Nothing else in the process changes. Returns why
/// this system cannot do that (`body` has then not run), or nothing.
std::optional<std::string> withCallsAnswered(const std::vector<int>& numbers, const CallAnswer& answer,
                                             const std::function<void()>& body);

/// Whether the call asks for the status of an open file, which C libraries do by SYS_fstat or by SYS_newfstatat.
bool isStatusOfOpenFile(const SystemCall& call);

/// Answers every call with this error.
CallAnswer refuseWith(int errorNumber);

/// The answer to getdents64 of a file system whose listings do not reveal the kinds of entries.
long listingWithoutKinds(const SystemCall& call);

} // namespace tarvolt::testing
