#include "foundation/termination.h"

#include <pthread.h>

#include <csignal>
#include <thread>
#include <utility>

namespace tarvolt {

void watchTerminationRequests(std::function<void()> onRequest) {
    sigset_t requests;
    sigemptyset(&requests);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction present {};
        if (::sigaction(signal, nullptr, &present) == 0 && present.sa_handler != SIG_IGN) {
            sigaddset(&requests, signal);
        }
    }
    pthread_sigmask(SIG_BLOCK, &requests, nullptr);
    std::thread([requests, request = std::move(onRequest)] {
        int signal = 0;
        while (sigwait(&requests, &signal) == 0) {
            request();
        }
    }).detach();
}

} // namespace tarvolt
