#pragma once

#include "foundation/published.h"

#include <QMetaObject>
#include <QObject>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tarvolt {

/// Has `tell` called in the next turn of the event loop after a change of any of `values`, once for all changes of a
/// turn. Ends with `receiver` or with what is returned, whichever goes first. Main thread.
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
