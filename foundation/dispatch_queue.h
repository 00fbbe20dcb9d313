#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tarvolt {

using Task = std::function<void()>;

/// Runs tasks later. Both calls return at once, may come from any thread and never run the task themselves, although it
/// may finish on another thread before they return. A task must not throw. A queue that has been stopped silently drops
/// its tasks.
class DispatchQueue {
public:
    DispatchQueue() = default;
    DispatchQueue(const DispatchQueue&) = delete;
    DispatchQueue& operator=(const DispatchQueue&) = delete;
    virtual ~DispatchQueue() = default;

    /// Runs `task` as soon as possible; on a serial queue in the order of the calls.
    virtual void async(Task task) = 0;

    /// Runs `task` once `delay` has passed on the monotonic clock, never earlier.
    virtual void asyncAfter(std::chrono::milliseconds delay, Task task) = 0;
};

/// A concurrent queue: every task gets its own thread. The threads are detached, so that a task that hangs in the
/// kernel (a dead network mount) does not keep the process from ending. When the system refuses a thread, the calls
/// throw std::system_error and the task is dropped.
std::shared_ptr<DispatchQueue> makeBackgroundQueue();

/// The number of tasks in the whole process that background queues have started and not finished. A program that ends
/// while this is not zero must leave by `_exit`, because such a task may still use static objects.
int runningBackgroundTasks();

} // namespace tarvolt
