#pragma once

#include <fcntl.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tarvolt::benchmarks {

/// The folder of a project B is B + this.
inline constexpr std::string_view tail = "_[ProjectData]";

/// The result of a call that must not fail.
template<class Result> Result succeed(Result result, const char* call) {
    if (result < 0) {
        std::perror(call);
        std::_Exit(1);
    }
    return result;
}

inline int openAt(int folder, const char* name, int flags) {
    return succeed(::openat(folder, name, flags | O_CLOEXEC, 0666), "openat");
}

} // namespace tarvolt::benchmarks
