#pragma once

/// Skips a test of what only Linux has in a build that does without it.
#ifdef TARVOLT_PLAIN_POSIX
#define TARVOLT_SKIP_WITH_PLAIN_POSIX(what) GTEST_SKIP() << "POSIX alone cannot " what
#else
#define TARVOLT_SKIP_WITH_PLAIN_POSIX(what) static_cast<void>(0)
#endif
