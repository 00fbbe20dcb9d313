#pragma once

#include <QObject>
#include <QPointer>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// Counts a held Return, keypad Enter, Space or Escape as one press, and knows whether the keyboard or the mouse was
/// used last. Filters the events of the whole application for as long as it lives. QML has one, made with the window.
///
/// An X11 desktop can deliver a repeated key as a release and a press that the toolkit does not recognise as a
/// repetition. Nobody is that quick, so a press within hundredths of a second of a release of the same key counts as a
/// repetition too. A Space that was first pressed in a text field goes on typing there.
class PressFilter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    explicit PressFilter(QObject* parent = nullptr);

    /// Whether the last press in a Quick window was a key, not a mouse button.
    Q_INVOKABLE bool lastPressWasKey() const { return lastPressWasKey_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int releasedKey_ = 0;
    quint64 releasedAt_ = 0;    ///< milliseconds, by the display's clock if the key has a time
    QPointer<QObject> typesIn_; ///< the text field that Space was pressed in
    bool lastPressWasKey_ = false;
};

} // namespace tarvolt
