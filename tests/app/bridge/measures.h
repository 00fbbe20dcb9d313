#pragma once

#include "tests/app/bridge/scene_window.h"

#include <QColor>
#include <QFont>
#include <QFontDatabase>

namespace tarvolt::testing {

/// The side of a symbol beside a text of this ratio to the system font, which the tests have at 10 points of 96 to the
/// inch.
inline int symbolSide(double ratio) {
    constexpr double systemPixels = 10 * 96.0 / 72;
    constexpr double symbolToText = 1.3;
    return 2 * qRound(ratio * systemPixels * symbolToText / 2);
}

/// Reads the measures and looks of items from the live scene.
class Measures {
public:
    explicit Measures(const SceneWindow& window) : window_(window) {}

    /// From the right edge of one item to the left edge of the next.
    double across(const QString& left, const QString& right) const {
        return window_.box(right).left() - window_.box(left).right();
    }

    /// From the bottom edge of one item to the top edge of the next.
    double down(const QString& upper, const QString& lower) const {
        return window_.box(lower).top() - window_.box(upper).bottom();
    }

    double middle(const QString& name) const { return window_.box(name).center().x(); }
    double centre(const QString& name) const { return window_.box(name).center().y(); }

    /// The four distances from the edges of `outer` to those of `inner`: left, top, right, bottom.
    std::array<double, 4> padding(const QString& outer, const QString& inner) const {
        const QRectF o = window_.box(outer);
        const QRectF i = window_.box(inner);
        return {i.left() - o.left(), i.top() - o.top(), o.right() - i.right(), o.bottom() - i.bottom()};
    }

    QVariant property(const QString& item, const char* name) const { return window_.find(item)->property(name); }
    QString text(const QString& item) const { return property(item, "text").toString(); }
    QFont font(const QString& item) const { return property(item, "font").value<QFont>(); }
    QColor colour(const QString& item, const char* name = "color") const {
        return property(item, name).value<QColor>();
    }
    double opacity(const QString& item) const { return window_.find(item)->opacity(); }

    int lines(const QString& item) const { return property(item, "lineCount").toInt(); }
    bool isMonospaced(const QString& item) const {
        return font(item).family() == QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    }

    /// The item's text style as its ratio to the system font.
    double textRatio(const QString& item) const {
        return font(item).pointSizeF() / QGuiApplication::font().pointSizeF();
    }

private:
    const SceneWindow& window_;
};

inline void expectColour(const QColor& colour, const char* rgb, double alpha = 1) {
    EXPECT_EQ(colour.rgb() | 0xFF000000U, QColor(rgb).rgb()) << colour.name().toStdString() << ", not " << rgb;
    EXPECT_NEAR(colour.alphaF(), alpha, 0.005) << rgb;
}

/// The ratios of the text styles.
inline constexpr double title2 = 17.0 / 13;
inline constexpr double title3 = 15.0 / 13;
inline constexpr double body = 1;
inline constexpr double caption = 11.0 / 13;
inline constexpr double caption2 = 10.0 / 13;

} // namespace tarvolt::testing
