#include "app/drawing/theme_colours.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace tarvolt {

namespace {

constexpr Colour black{0, 0, 0, 1};
constexpr Colour white{255, 255, 255, 1};

// What each kind of ink reaches at least on its toughest surface, once dimmed.
constexpr double captionContrastLight = 4.8;
constexpr double captionContrastDark = 5.0;
constexpr double textContrast = 4.6;
constexpr double struckContrast = 3.3;
constexpr double iconContrast = 3.02;

constexpr Colour hex(unsigned rgb) {
    return {static_cast<std::uint8_t>(rgb >> 16U), static_cast<std::uint8_t>(rgb >> 8U & 0xFFU),
            static_cast<std::uint8_t>(rgb & 0xFFU), 1};
}

constexpr Colour withAlpha(Colour colour, double alpha) {
    colour.alpha = alpha;
    return colour;
}

std::uint8_t mixedChannel(std::uint8_t from, std::uint8_t to, double share) {
    return static_cast<std::uint8_t>(std::lround(from + (to - from) * share));
}

Colour mixed(Colour from, Colour to, double share) {
    return {mixedChannel(from.red, to.red, share), mixedChannel(from.green, to.green, share),
            mixedChannel(from.blue, to.blue, share), 1};
}

double linear(std::uint8_t channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(Colour colour) {
    return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

double worstContrast(Colour ink, double opacity, std::initializer_list<Colour> surfaces) {
    double worst = 21;
    for (const Colour surface : surfaces) {
        worst = std::min(worst, contrastRatio(drawn(ink, opacity, surface), surface));
    }
    return worst;
}

/// Moves `ink` towards `end` in steps of 2 % of the way left, until it reaches `least` on all of `surfaces`.
Colour guarded(Colour ink, double opacity, double least, Colour end, std::initializer_list<Colour> surfaces) {
    constexpr int lastStep = 200;
    constexpr double keptPerStep = 0.98;
    Colour moved = ink;
    double kept = 1;
    for (int step = 0; step < lastStep && worstContrast(moved, opacity, surfaces) < least; ++step) {
        kept *= keptPerStep;
        moved = mixed(end, ink, kept);
    }
    return moved;
}

struct Surfaces {
    Colour window, base, card, sheet, searchBar, previewBox, log, badge;
};

void setSurfaces(ThemeColours& theme, const PlatformColours& platform) {
    const auto [window, base, text] = platform;
    theme.window = window;
    theme.base = base;
    theme.card = theme.dark ? mixed(window, text, 0.045) : base;
    theme.sheet = theme.dark ? mixed(window, text, 0.04) : mixed(window, base, 0.55);
    theme.quaternary = withAlpha(text, theme.dark ? 0.14 : 0.11);
    theme.badge = theme.dark ? hex(0xFF9F45) : hex(0xFF7A00);
}

Surfaces surfacesOf(const ThemeColours& theme) {
    return {theme.window,
            theme.base,
            theme.card,
            theme.sheet,
            drawn(theme.quaternary, 0.5, theme.window),
            drawn(theme.quaternary, 0.5, theme.sheet),
            drawn(theme.quaternary, 0.3, theme.window),
            drawn(theme.badge, 0.1, theme.window)};
}

void setNeutralInks(ThemeColours& theme, const PlatformColours& platform) {
    const bool dark = theme.dark;
    const auto [window, base, text] = platform;
    const Colour end = dark ? white : black;
    const Surfaces on = surfacesOf(theme);
    theme.primary = mixed(text, window, dark ? 0.06 : 0.09);
    const Colour soft = mixed(text, window, dark ? 0.36 : 0.4);
    const double captionContrast = dark ? captionContrastDark : captionContrastLight;
    theme.secondary = guarded(soft, 1, captionContrast, end,
                              {on.window, on.card, on.sheet, on.searchBar, on.previewBox, on.log, on.badge});
    theme.secondarySixTenths = guarded(soft, 0.6, captionContrast, end, {on.log});
    theme.secondaryEightTenths = guarded(soft, 0.8, textContrast, end, {on.window});
    theme.secondaryHalf = guarded(soft, 0.5, iconContrast, end, {on.window});
    theme.disabledInk = withAlpha(text, 0.36);
    theme.fieldBorder = guarded(mixed(text, window, dark ? 0.658 : 0.615), 1, iconContrast, end, {on.base});
    theme.fieldBorderHover = withAlpha(text, 0.62);
}

void setAccentInks(ThemeColours& theme) {
    const bool dark = theme.dark;
    const Colour end = dark ? white : black;
    const Surfaces on = surfacesOf(theme);
    const auto accent = [&](unsigned light, unsigned inDark, double opacity, double least,
                            std::initializer_list<Colour> surfaces) {
        return guarded(hex(dark ? inDark : light), opacity, least, end, surfaces);
    };
    theme.orange = accent(0xD75600, 0xFF9F45, 1, iconContrast, {on.window, on.card, on.searchBar, on.sheet, on.log});
    theme.orangeSixTenths = accent(0x962C00, 0xFF9F45, 0.6, iconContrast, {on.window});
    theme.green = accent(0x1A7533, 0x62D284, 1, textContrast, {on.card, on.previewBox});
    theme.greenSixTenths = accent(0x00521C, 0x62D284, 0.6, iconContrast, {on.log});
    theme.red = accent(0xC01C28, 0xFF857D, 1, textContrast, {on.log});
    theme.redSevenTenths = accent(0xC01C28, 0xFF9A93, 0.7, struckContrast, {on.previewBox});
    theme.yellow = accent(0x875F00, 0xF3CB52, 1, textContrast, {on.card});
}

void setLines(ThemeColours& theme, Colour text) {
    theme.line = withAlpha(text, 0.13);
    theme.rowLine = withAlpha(text, 0.09);
    theme.cardBorder = withAlpha(text, theme.dark ? 0.08 : 0.1);
    theme.sheetBorder = theme.dark ? withAlpha(white, 0.12) : withAlpha(black, 0.1);
}

void setControls(ThemeColours& theme, const PlatformColours& platform) {
    const bool dark = theme.dark;
    const auto [window, base, text] = platform;
    theme.prominent = dark ? hex(0xF5903A) : hex(0xC94E00);
    theme.prominentHover = dark ? hex(0xF6A056) : hex(0xB94800);
    theme.prominentPressed = dark ? hex(0xD37C32) : hex(0xA54000);
    theme.prominentDisabled = withAlpha(text, 0.08);
    theme.prominentLabel = dark ? hex(0x241202) : white;
    theme.face = dark ? mixed(window, text, 0.11) : base;
    theme.faceHover = dark ? mixed(window, text, 0.155) : mixed(window, text, 0.08);
    theme.facePressed = dark ? mixed(window, black, 0.35) : mixed(window, text, 0.15);
    theme.faceDisabled = withAlpha(theme.face, 0.45);
    theme.faceBorder = withAlpha(text, dark ? 0.09 : 0.15);
    theme.faceBorderDisabled = withAlpha(text, 0.08);
    theme.faceShade = dark ? withAlpha(black, 0.35) : withAlpha(text, 0.1);
    theme.selection = withAlpha(theme.orange, dark ? 0.38 : 0.26);
    theme.thumb = withAlpha(text, 0.26);
    theme.thumbHover = withAlpha(text, 0.42);
    theme.thumbPressed = withAlpha(text, 0.55);
    theme.handleHover = withAlpha(text, 0.35);
    theme.spinnerTrack = withAlpha(text, 0.14);
}

void setLayers(ThemeColours& theme) {
    theme.scrim = withAlpha(black, theme.dark ? 0.46 : 0.26);
    theme.alertScrim = withAlpha(black, theme.dark ? 0.3 : 0.2);
    theme.wideShadow = withAlpha(black, theme.dark ? 0.55 : 0.34);
    theme.tightShadow = withAlpha(black, theme.dark ? 0.3 : 0.16);
}

} // namespace

Colour drawn(Colour colour, double opacity, Colour background) {
    return mixed(background, colour, colour.alpha * opacity);
}

double contrastRatio(Colour a, Colour b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

ThemeColours makeThemeColours(const PlatformColours& platform) {
    ThemeColours theme;
    theme.dark = luminance(platform.window) < luminance(platform.text);
    setSurfaces(theme, platform);
    setNeutralInks(theme, platform);
    setAccentInks(theme);
    setLines(theme, platform.text);
    setControls(theme, platform);
    setLayers(theme);
    return theme;
}

} // namespace tarvolt
