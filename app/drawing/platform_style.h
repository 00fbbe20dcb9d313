#pragma once

#include <QFont>
#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// What the platform says of fonts, lines and movement, kept up with it. `settingsChanged` also tells that the display
/// has got another resolution or scale.
class PlatformStyle : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QFont systemFont READ systemFont NOTIFY settingsChanged)
    Q_PROPERTY(QFont fixedFont READ fixedFont NOTIFY settingsChanged)
    Q_PROPERTY(double pixelsPerPoint READ pixelsPerPoint NOTIFY settingsChanged)
    /// How thick a thin line is: as many whole device pixels as one takes, at least one.
    Q_PROPERTY(double hairline READ hairline NOTIFY settingsChanged)
    /// How long the caret's blinking takes, on and off, in milliseconds; 0 where it is not to blink.
    Q_PROPERTY(int caretFlash READ caretFlash CONSTANT)
    /// Whether the system asks for as little movement as can be; it is asked anew whenever it has changed its font.
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY settingsChanged)

public:
    explicit PlatformStyle(QObject* parent = nullptr);

    static QFont systemFont();
    static QFont fixedFont();
    static double pixelsPerPoint();
    static double hairline();
    static int caretFlash();
    static bool reducedMotion();

    /// `family`'s font at a ratio of the system font's size, but never too small to be read. `weight` is QFont's,
    /// `tracking` the pixels added between letters.
    Q_INVOKABLE static QFont styled(QFont family, double ratio, int weight, double tracking = 0);

    /// `font` for `text`, which is read character by character, as names and paths are: without ligatures and
    /// contextual forms ("1x7" with a multiplication sign), wherever every character of the text can do without any.
    Q_INVOKABLE static QFont verbatim(QFont font, const QString& text);

    /// The side of the square in which a symbol beside a text of `pixels` is drawn: an even number.
    Q_INVOKABLE static int symbolBox(double pixels);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void settingsChanged();

private:
    void followScale();
};

} // namespace tarvolt
