#include "app/drawing/ink.h"

#include <algorithm>
#include <cmath>

namespace tarvolt {

double Ink::luminance(const QColor& colour) {
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) + 0.0722 * linear(colour.blue());
}

double Ink::contrastRatio(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor Ink::mixed(const QColor& from, const QColor& to, double share) {
    const auto channel = [share](int start, int end) {
        return static_cast<int>(std::lround(start + (end - start) * share));
    };
    return {channel(from.red(), to.red()), channel(from.green(), to.green()), channel(from.blue(), to.blue())};
}

QColor Ink::drawn(const QColor& colour, double opacity, const QColor& background) {
    return mixed(background, colour, static_cast<double>(colour.alphaF()) * opacity);
}

QColor Ink::legible(const QColor& ink, const QColor& end, double opacity, double least, const QVariantList& surfaces) {
    constexpr int lastStep = 200;
    constexpr double keptPerStep = 0.98;
    QColor moved = ink;
    const auto isFaint = [&](const QVariant& surface) {
        const auto colour = surface.value<QColor>();
        return contrastRatio(drawn(moved, opacity, colour), colour) < least;
    };
    double kept = 1;
    for (int step = 0; step < lastStep && std::ranges::any_of(surfaces, isFaint); ++step) {
        kept *= keptPerStep;
        moved = mixed(end, ink, kept);
    }
    return moved;
}

} // namespace tarvolt
