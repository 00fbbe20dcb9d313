#include "app/bridge/qt_main_queue.h"

#include <QMetaObject>
#include <QTimer>

#include <mutex>
#include <utility>

namespace tarvolt {

namespace {

using Clock = std::chrono::steady_clock;

/// Guards each queue's receiver. It is also locked once where a task arrives, because ThreadSanitizer does not see the
/// toolkit's own locks and would report the handover as a race.
std::mutex handOver;

/// Timers count in whole milliseconds and may wake a moment early; a task that is early waits for the rest.
void runAt(Clock::time_point deadline, QObject* receiver, const Task& task) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0) {
        task();
    } else {
        QTimer::singleShot(left, Qt::PreciseTimer, receiver, [=] { runAt(deadline, receiver, task); });
    }
}

} // namespace

void QtMainQueue::async(Task task) {
    const std::lock_guard lock(handOver);
    if (receiver_) {
        QMetaObject::invokeMethod(
            receiver_.get(),
            [task = std::move(task)] {
                { const std::lock_guard arrived(handOver); }
                task();
            },
            Qt::QueuedConnection);
    }
}

void QtMainQueue::asyncAfter(std::chrono::milliseconds delay, Task task) {
    // The timer has to be started on the main thread, but the time runs from this call.
    async([this, deadline = Clock::now() + delay, task = std::move(task)] { runAt(deadline, receiver_.get(), task); });
}

void QtMainQueue::stop() {
    // Destroyed after the lock is released, because what a task holds may post when it is destroyed.
    std::unique_ptr<QObject> receiver;
    const std::lock_guard lock(handOver);
    receiver.swap(receiver_);
}

} // namespace tarvolt
