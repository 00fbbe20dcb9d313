// Preloaded into a program by LD_PRELOAD, makes it meet a network drive: each question for the size of an entry takes a
// millisecond. With ONE_THREAD set, the program gets no more threads than the one it has.
#include <dlfcn.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

extern "C" {

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
    using Call = int (*)(int, const char*, struct stat*, int);
    static const auto real = reinterpret_cast<Call>(dlsym(RTLD_NEXT, "fstatat"));
    ::usleep(1000);
    return real(folder, path, status, flags);
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*),
                   void* argument) noexcept {
    using Call = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static const auto real = reinterpret_cast<Call>(dlsym(RTLD_NEXT, "pthread_create"));
    return std::getenv("ONE_THREAD") == nullptr ? real(thread, attributes, start, argument) : EAGAIN;
}
}
