#pragma once

#include <cstdio>
#include <cstdlib>

namespace tarvolt {

/// Ends the process, so that the fuzzer keeps the input, unless what must hold does.
inline void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "It does not hold that it %s.\n", what);
        std::abort();
    }
}

} // namespace tarvolt
