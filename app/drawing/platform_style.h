#pragma once

#include <QFont>
#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// The platform's settings for fonts, lines and animations, kept up to date. `settingsChanged` is also emitted when the
/// resolution or scale of the display changes.
class PlatformStyle : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QFont systemFont READ systemFont NOTIFY settingsChanged)
    Q_PROPERTY(QFont fixedFont READ fixedFont NOTIFY settingsChanged)
    Q_PROPERTY(double pixelsPerPoint READ pixelsPerPoint NOTIFY settingsChanged)
    /// The thickness of a thin line: 1, rounded down to whole device pixels, but at least one of these.
    Q_PROPERTY(double hairline READ hairline NOTIFY settingsChanged)
    /// Whether the system asks for as little movement as possible. Read again whenever the system font changes.
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY settingsChanged)

public:
    explicit PlatformStyle(QObject* parent = nullptr);

    static QFont systemFont();
    static QFont fixedFont();
    static double pixelsPerPoint();
    static double hairline();
    static bool reducedMotion();

    /// `family`'s font at a ratio of the system font's size, but never too small to be read. `weight` is QFont's,
    /// `tracking` the pixels added between letters.
    Q_INVOKABLE static QFont styled(QFont family, double ratio, int weight, double tracking = 0);

    /// `font` for `text`, which is read character by character, as names and paths are: without ligatures and
    /// contextual forms ("1x7" with a multiplication sign), if none of its characters needs them.
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
