#pragma once

#include <cstdint>

namespace tarvolt {

/// An sRGB colour; `alpha` from 0 (clear) to 1.
struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    double alpha = 1;

    friend bool operator==(const Colour&, const Colour&) = default;
};

/// The three colours of the platform's palette that all others come from, opaque.
struct PlatformColours {
    Colour window;
    Colour base;
    Colour text;
};

/// The window's colours by role. A role that a section draws at an opacity ("secondary at .6") is a colour of its own,
/// strong enough to be read once the section has dimmed it; the section still sets that opacity.
struct ThemeColours {
    bool dark = false;

    // Surfaces.
    Colour window, base, card, sheet;
    Colour quaternary; ///< the faint neutral fill; sections use it at half and at three tenths
    Colour badge;      ///< used at a tenth

    // Texts and icons.
    Colour primary, secondary, orange, green, red, yellow, disabledInk, prominentLabel;
    Colour secondarySixTenths, secondaryEightTenths, secondaryHalf;
    Colour orangeSixTenths, greenSixTenths, redSevenTenths;

    // Lines.
    Colour line, rowLine, cardBorder, sheetBorder, fieldBorder, fieldBorderHover;

    // Controls.
    Colour prominent, prominentHover, prominentPressed, prominentDisabled;
    Colour face, faceHover, facePressed, faceDisabled, faceBorder, faceBorderDisabled, faceShade;
    Colour selection, thumb, thumbHover, thumbPressed, handleHover, spinnerTrack;

    // Layers over the window.
    Colour scrim, alertScrim, wideShadow, tightShadow;
};

/// The colours that go with a platform palette, light or dark. Text and icons are moved towards black or white until
/// they can be read on the toughest surface they stand on, so soft and mid-grey palettes work as well. Black and white
/// themselves are too weak at six tenths on a window between #404040 and #BFBFBF; they are then what is used.
ThemeColours makeThemeColours(const PlatformColours& platform);

/// How `colour`, at its alpha times `opacity`, looks on an opaque `background`.
Colour drawn(Colour colour, double opacity, Colour background);

/// The contrast ratio of two opaque colours, 1 to 21, as WCAG 2 defines it.
double contrastRatio(Colour a, Colour b);

} // namespace tarvolt
