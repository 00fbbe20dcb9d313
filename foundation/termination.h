#pragma once

#include <functional>

namespace tarvolt {

/// From now on SIGTERM, SIGINT and SIGHUP no longer end the process but call `onRequest`, on a separate thread. Signals
/// that the process was started to ignore stay ignored. Call this once, before any other thread is started, because
/// threads inherit the blocked signals.
void watchTerminationRequests(std::function<void()> onRequest);

} // namespace tarvolt
