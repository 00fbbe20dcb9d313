#pragma once

#include "foundation/published.h"

#include <QMetaObject>
#include <QObject>

#include <functional>
#include <utility>
#include <vector>

namespace tarvolt {

/// Calls `tell` in the next turn of the event loop after any of `values` changes, once for all changes of a turn.
/// Must be a member of `receiver`. Main thread.
class TellOnce final {
public:
    template<class... Values>
    TellOnce(QObject* receiver, std::function<void()> tell, Published<Values>&... values) : tell_(std::move(tell)) {
        const auto soon = [this, receiver] {
            if (!std::exchange(due_, true)) {
                QMetaObject::invokeMethod(
                    receiver, [this] { tellIfDue(); }, Qt::QueuedConnection);
            }
        };
        (subscriptions_.push_back(values.observe(soon)), ...);
    }
    TellOnce(const TellOnce&) = delete;
    TellOnce& operator=(const TellOnce&) = delete;

    /// Calls `tell` immediately, and not again for the changes so far.
    void now() {
        due_ = false;
        tell_();
    }

private:
    void tellIfDue() {
        if (due_) {
            now();
        }
    }

    const std::function<void()> tell_;
    bool due_ = false;
    std::vector<Subscription> subscriptions_;
};

} // namespace tarvolt
