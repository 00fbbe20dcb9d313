#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tarvolt {

using Task = std::function<void()>;

/// Runs tasks later. Both calls return at once, may come from any thread, and never run the task themselves; on another
/// thread it may be over before they return. A task must not throw. A queue that has been stopped drops what it is
/// given without a word.
class DispatchQueue {
public:
    DispatchQueue() = default;
    DispatchQueue(const DispatchQueue&) = delete;
    DispatchQueue& operator=(const DispatchQueue&) = delete;
    virtual ~DispatchQueue() = default;

    /// Runs `task` as soon as the queue gets to it; on a serial queue in the order of the calls.
    virtual void async(Task task) = 0;

    /// Runs `task` once `delay` has passed on the monotonic clock, never earlier.
    virtual void asyncAfter(std::chrono::milliseconds delay, Task task) = 0;
};

/// A concurrent queue: every task gets a thread of its own. The threads are detached, so that a task that hangs in the
/// kernel (a dead network mount) never keeps the process from ending. Where the system refuses a thread, the calls
/// throw std::system_error and the task is dropped.
std::shared_ptr<DispatchQueue> makeBackgroundQueue();

/// The number of tasks that background queues have started and not yet finished, over the whole process. A program
/// that ends while this is not zero must leave by `_exit`, for such a task may still use static objects.
int runningBackgroundTasks();

} // namespace tarvolt
