#pragma once

// TARVOLT_UNDER_SANITIZER is 1 when the tests run under a memory or thread sanitizer, else 0. An
// impossible allocation ends the process there instead of throwing.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TARVOLT_UNDER_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define TARVOLT_UNDER_SANITIZER 1
#endif
#endif
#ifndef TARVOLT_UNDER_SANITIZER
#define TARVOLT_UNDER_SANITIZER 0
#endif
