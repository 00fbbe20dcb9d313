#pragma once

#include <functional>

namespace tarvolt {

/// Calls `onRequest`, on a thread of its own, whenever the process is asked to end (SIGTERM, SIGINT) instead of ending
/// it there and then. To be called once, before any other thread is started: they inherit that these signals wait.
void watchTerminationRequests(std::function<void()> onRequest);

} // namespace tarvolt
