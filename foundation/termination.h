#pragma once

#include <functional>

namespace tarvolt {

/// Calls `onRequest`, on a thread of its own, whenever the process is asked to end (SIGTERM, SIGINT, SIGHUP) instead of
/// ending it there and then; a signal that whoever started the process has it ignore stays ignored. To be called once,
/// before any other thread is started: they inherit that these signals wait.
void watchTerminationRequests(std::function<void()> onRequest);

} // namespace tarvolt
