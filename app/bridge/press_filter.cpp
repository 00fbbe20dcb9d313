#include "app/bridge/press_filter.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QInputMethodQueryEvent>
#include <QKeyEvent>
#include <QQuickWindow>

namespace tarvolt {

namespace {

// In milliseconds, by the display's clock and by the time of arrival.
constexpr quint64 quickestFinger = 20;
constexpr quint64 quickestArrival = 60;

bool countsOnce(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space || key == Qt::Key_Escape;
}

/// While assistive technology listens, the toolkit asks it about each key and passes on a copy without the key's time;
/// then the time of arrival counts.
quint64 timeOf(const QKeyEvent& key) {
    return key.timestamp() != 0 ? key.timestamp() : static_cast<quint64>(QDeadlineTimer::current().deadline());
}

/// What has the focus, if text can be typed there.
QObject* focusedTextField() {
    QObject* focused = QGuiApplication::focusObject();
    QInputMethodQueryEvent takesText(Qt::ImEnabled);
    if (focused != nullptr) {
        QCoreApplication::sendEvent(focused, &takesText);
    }
    return takesText.value(Qt::ImEnabled).toBool() ? focused : nullptr;
}

} // namespace

PressFilter::PressFilter(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool PressFilter::eventFilter(QObject* watched, QEvent* event) {
    const bool keyPress = event->type() == QEvent::KeyPress;
    if ((keyPress || event->type() == QEvent::MouseButtonPress) && qobject_cast<QQuickWindow*>(watched) != nullptr) {
        lastPressWasKey_ = keyPress;
    }
    if (!keyPress && event->type() != QEvent::KeyRelease) {
        return QObject::eventFilter(watched, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    if (keyPress && key->key() != releasedKey_) {
        releasedKey_ = 0; // A held key is not interrupted by another.
    }
    if (!countsOnce(key->key())) {
        return false;
    }
    if (!keyPress) {
        releasedKey_ = key->key();
        releasedAt_ = timeOf(*key);
        return false;
    }
    const quint64 quickest = key->timestamp() != 0 ? quickestFinger : quickestArrival;
    const bool quick = key->key() == releasedKey_ && timeOf(*key) - releasedAt_ < quickest;
    if (key->isAutoRepeat() || quick) {
        return key->key() != Qt::Key_Space || typesIn_ == nullptr || typesIn_ != QGuiApplication::focusObject();
    }
    typesIn_ = focusedTextField();
    return false;
}

} // namespace tarvolt
