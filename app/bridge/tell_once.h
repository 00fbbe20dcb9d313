#pragma once

#include "foundation/published.h"

#include <QMetaObject>
#include <QObject>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tarvolt {

/// Calls `tell` in the next turn of the event loop after any of `values` changes, once for all changes of a turn. Stops
/// when `receiver` or the returned subscriptions are destroyed. Main thread.
template<class... Values>
[[nodiscard]] std::vector<Subscription> tellOnce(QObject* receiver, std::function<void()> tell,
                                                 Published<Values>&... values) {
    const auto soon = [receiver, tell = std::move(tell), posted = std::make_shared<bool>(false)] {
        if (!std::exchange(*posted, true)) {
            const auto now = [tell, posted] {
                *posted = false;
                tell();
            };
            QMetaObject::invokeMethod(receiver, now, Qt::QueuedConnection);
        }
    };
    std::vector<Subscription> subscriptions;
    (subscriptions.push_back(values.observe(soon)), ...);
    return subscriptions;
}

} // namespace tarvolt
