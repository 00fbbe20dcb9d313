#include "app/bridge/qt_main_queue.h"

#include <QMetaObject>
#include <QTimer>

#include <utility>

namespace tarvolt {

namespace {

using Clock = std::chrono::steady_clock;

/// Timers count in whole milliseconds and may wake a moment early; whoever is early waits for the rest.
void runAt(Clock::time_point deadline, QObject* receiver, Task task) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0) {
        task();
        return;
    }
    QTimer::singleShot(left, Qt::PreciseTimer, receiver, [deadline, receiver, task = std::move(task)]() mutable {
        runAt(deadline, receiver, std::move(task));
    });
}

} // namespace

QtMainQueue::QtMainQueue() : receiver_(std::make_unique<QObject>()) {}

QtMainQueue::~QtMainQueue() = default;

void QtMainQueue::async(Task task) {
    post(std::move(task));
}

void QtMainQueue::asyncAfter(std::chrono::milliseconds delay, Task task) {
    // The timer has to be started on the main thread, but the time runs from this call.
    post([this, deadline = Clock::now() + delay, task = std::move(task)]() mutable {
        runAt(deadline, receiver_.get(), std::move(task));
    });
}

void QtMainQueue::stop() {
    std::unique_ptr<QObject> receiver;
    const std::lock_guard lock(mutex_);
    receiver.swap(receiver_);
}

void QtMainQueue::post(Task task) {
    const std::lock_guard lock(mutex_);
    if (receiver_) {
        QMetaObject::invokeMethod(receiver_.get(), std::move(task), Qt::QueuedConnection);
    }
}

} // namespace tarvolt
