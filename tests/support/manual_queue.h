#pragma once

#include "foundation/dispatch_queue.h"

#include <chrono>
#include <cstddef>
#include <map>
#include <mutex>
#include <utility>

namespace tarvolt::testing {

/// A queue that a test drains by hand, with a clock moved by hand. Tasks may be added from any thread; they run on the
/// thread that drains or moves the clock, in the order of their due times and among those in the order of the calls.
class ManualQueue final : public DispatchQueue {
public:
    using Milliseconds = std::chrono::milliseconds;

    void async(Task task) override { asyncAfter(Milliseconds{0}, std::move(task)); }

    void asyncAfter(Milliseconds delay, Task task) override {
        const std::lock_guard guard(mutex_);
        tasks_.emplace(now_ + delay, std::move(task));
    }

    /// Runs the first task that is due; false when there is none.
    bool runOne() {
        Task task;
        {
            const std::lock_guard guard(mutex_);
            if (tasks_.empty() || tasks_.begin()->first > now_) {
                return false;
            }
            task = std::move(tasks_.begin()->second);
            tasks_.erase(tasks_.begin());
        }
        task();
        return true;
    }

    /// Runs everything that is due, including what is added meanwhile.
    void drain() {
        while (runOne()) {
        }
    }

    /// Advances the clock and runs everything that becomes due, each at its own time.
    void advance(Milliseconds by) {
        const auto end = now() + by;
        for (drain();; drain()) {
            const std::lock_guard guard(mutex_);
            if (tasks_.empty() || tasks_.begin()->first > end) {
                now_ = end;
                return;
            }
            now_ = tasks_.begin()->first;
        }
    }

    Milliseconds now() const {
        const std::lock_guard guard(mutex_);
        return now_;
    }

    std::size_t pending() const {
        const std::lock_guard guard(mutex_);
        return tasks_.size();
    }

    /// Drops every task that has not run.
    void clear() {
        std::multimap<Milliseconds, Task> dropped; // destroying what they hold may call this queue
        const std::lock_guard guard(mutex_);
        dropped.swap(tasks_);
    }

private:
    mutable std::mutex mutex_;
    Milliseconds now_{0};
    std::multimap<Milliseconds, Task> tasks_;
};

} // namespace tarvolt::testing
