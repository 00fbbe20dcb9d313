#include "app/bridge/held_return.h"

#include <QKeyEvent>

namespace tarvolt {

namespace {

constexpr quint64 quickestFinger = 20; // milliseconds

} // namespace

bool HeldReturn::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) {
        return QObject::eventFilter(watched, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) {
        return false;
    }
    if (event->type() == QEvent::KeyRelease) {
        releasedKey_ = key->key();
        releasedAt_ = key->timestamp();
        return false;
    }
    return !key->isAutoRepeat() && key->key() == releasedKey_ && key->timestamp() - releasedAt_ < quickestFinger;
}

} // namespace tarvolt
