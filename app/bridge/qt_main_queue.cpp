#include "app/bridge/qt_main_queue.h"

#include <QCoreApplication>
#include <QEvent>
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

/// Gets one event for each task that waits. The tasks themselves go by way of the queue's own lock and not inside the
/// events, so that what hands them from thread to thread can be checked.
class QtMainQueue::Receiver final : public QObject {
public:
    explicit Receiver(QtMainQueue& queue) : queue_(queue) {}

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        queue_.runNext();
        return true;
    }

private:
    QtMainQueue& queue_;
};

QtMainQueue::QtMainQueue() : receiver_(std::make_unique<Receiver>(*this)) {}

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
    // Let go after the lock: what a task holds may post on its way out.
    std::unique_ptr<QObject> receiver;
    std::deque<Task> dropped;
    const std::lock_guard lock(mutex_);
    receiver.swap(receiver_);
    dropped.swap(waiting_);
}

void QtMainQueue::post(Task task) {
    const std::lock_guard lock(mutex_);
    if (receiver_) {
        waiting_.push_back(std::move(task));
        QCoreApplication::postEvent(receiver_.get(), new QEvent(QEvent::User));
    }
}

void QtMainQueue::runNext() {
    Task task;
    {
        const std::lock_guard lock(mutex_);
        if (waiting_.empty()) {
            return;
        }
        task = std::move(waiting_.front());
        waiting_.pop_front();
    }
    task();
}

} // namespace tarvolt
