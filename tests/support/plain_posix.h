#pragma once

namespace tarvolt::testing {

// isPlainPosix: whether this build does without what only Linux has. The macro skips a test in such a build.
#ifdef TARVOLT_PLAIN_POSIX
inline constexpr bool isPlainPosix = true;
#define TARVOLT_SKIP_WITH_PLAIN_POSIX(what) GTEST_SKIP() << "POSIX alone cannot " what
#else
inline constexpr bool isPlainPosix = false;
#define TARVOLT_SKIP_WITH_PLAIN_POSIX(what) static_cast<void>(0)
#endif

} // namespace tarvolt::testing
