#pragma once

#include <QObject>

namespace tarvolt {

/// Keeps a held Return, or keypad Enter, from being taken for a new press. A busy X11 desktop can deliver a repeated
/// key as a release and a press that the toolkit does not know to be one repetition; nobody is that quick, so a press
/// that follows a release of the same key within hundredths of a second is dropped. Installed as an event filter of the
/// application.
class HeldReturn final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int releasedKey_ = 0;
    quint64 releasedAt_ = 0; ///< milliseconds, of the display's own clock
};

} // namespace tarvolt
