#pragma once

#include <QColor>
#include <QObject>
#include <QVariant>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// The calculations behind the colour rules. Colours given and returned are opaque unless stated otherwise.
class Ink : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// How bright a colour is, from 0 (black) to 1 (white), as WCAG 2 defines it.
    Q_INVOKABLE static double luminance(const QColor& colour);

    /// The contrast ratio of two colours, 1 to 21, as WCAG 2 defines it.
    static double contrastRatio(const QColor& a, const QColor& b);

    /// The colour that is this share of the way from `from` to `to`.
    Q_INVOKABLE static QColor mixed(const QColor& from, const QColor& to, double share);

    /// How `colour`, at its alpha times `opacity`, looks on `background`.
    Q_INVOKABLE static QColor drawn(const QColor& colour, double opacity, const QColor& background);

    /// `ink`, moved towards `end` as little as it takes to reach the contrast `least`, drawn at `opacity`, on each of
    /// the colours in `surfaces`; nearly `end` itself where nothing on the way reaches it.
    Q_INVOKABLE static QColor legible(const QColor& ink, const QColor& end, double opacity, double least,
                                      const QVariantList& surfaces);
};

} // namespace tarvolt
