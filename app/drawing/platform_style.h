#pragma once

#include "app/drawing/theme_colours.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// The colours and fonts of the window, taken from the platform's palette and fonts and kept up with them. The roles
/// are those of ThemeColours; the text styles are ratios of the system font.
class PlatformStyle : public QObject {
    Q_OBJECT
    QML_ELEMENT

// One role is one property under its own name.
#define TARVOLT_COLOUR(name)                                                                                           \
    Q_PROPERTY(QColor name READ name NOTIFY coloursChanged)                                                            \
    QColor name() const {                                                                                              \
        return qtColour(colours_.name);                                                                                \
    }
#define TARVOLT_FONT(name)                                                                                             \
    Q_PROPERTY(QFont name READ name NOTIFY fontsChanged)                                                               \
    QFont name() const {                                                                                               \
        return fonts_.name;                                                                                            \
    }

public:
    TARVOLT_COLOUR(window)
    TARVOLT_COLOUR(base)
    TARVOLT_COLOUR(card)
    TARVOLT_COLOUR(sheet)
    TARVOLT_COLOUR(quaternary)
    TARVOLT_COLOUR(badge)
    TARVOLT_COLOUR(primary)
    TARVOLT_COLOUR(secondary)
    TARVOLT_COLOUR(orange)
    TARVOLT_COLOUR(green)
    TARVOLT_COLOUR(red)
    TARVOLT_COLOUR(yellow)
    TARVOLT_COLOUR(disabledInk)
    TARVOLT_COLOUR(prominentLabel)
    TARVOLT_COLOUR(secondarySixTenths)
    TARVOLT_COLOUR(secondaryEightTenths)
    TARVOLT_COLOUR(secondaryHalf)
    TARVOLT_COLOUR(orangeSixTenths)
    TARVOLT_COLOUR(greenSixTenths)
    TARVOLT_COLOUR(redSevenTenths)
    TARVOLT_COLOUR(line)
    TARVOLT_COLOUR(rowLine)
    TARVOLT_COLOUR(cardBorder)
    TARVOLT_COLOUR(sheetBorder)
    TARVOLT_COLOUR(fieldBorder)
    TARVOLT_COLOUR(fieldBorderHover)
    TARVOLT_COLOUR(prominent)
    TARVOLT_COLOUR(prominentHover)
    TARVOLT_COLOUR(prominentPressed)
    TARVOLT_COLOUR(prominentDisabled)
    TARVOLT_COLOUR(face)
    TARVOLT_COLOUR(faceHover)
    TARVOLT_COLOUR(facePressed)
    TARVOLT_COLOUR(faceDisabled)
    TARVOLT_COLOUR(faceBorder)
    TARVOLT_COLOUR(faceBorderDisabled)
    TARVOLT_COLOUR(faceShade)
    TARVOLT_COLOUR(selection)
    TARVOLT_COLOUR(thumb)
    TARVOLT_COLOUR(thumbHover)
    TARVOLT_COLOUR(thumbPressed)
    TARVOLT_COLOUR(handleHover)
    TARVOLT_COLOUR(spinnerTrack)
    TARVOLT_COLOUR(scrim)
    TARVOLT_COLOUR(alertScrim)
    TARVOLT_COLOUR(wideShadow)
    TARVOLT_COLOUR(tightShadow)

    TARVOLT_FONT(title2)
    TARVOLT_FONT(title3)
    TARVOLT_FONT(title3Semibold)
    TARVOLT_FONT(headline)
    TARVOLT_FONT(body)
    TARVOLT_FONT(bodySemibold)
    TARVOLT_FONT(caption)
    TARVOLT_FONT(captionCapitals)
    TARVOLT_FONT(monoBody)
    TARVOLT_FONT(monoBodyMedium)
    TARVOLT_FONT(monoCaption)
    TARVOLT_FONT(monoCaption2)

#undef TARVOLT_COLOUR
#undef TARVOLT_FONT

    /// How wide and high a symbol beside a text of each style is drawn.
    Q_PROPERTY(int title2Symbol READ title2Symbol NOTIFY fontsChanged)
    Q_PROPERTY(int title3Symbol READ title3Symbol NOTIFY fontsChanged)
    Q_PROPERTY(int bodySymbol READ bodySymbol NOTIFY fontsChanged)
    Q_PROPERTY(int captionSymbol READ captionSymbol NOTIFY fontsChanged)
    Q_PROPERTY(int caption2Symbol READ caption2Symbol NOTIFY fontsChanged)
    Q_PROPERTY(double bodyPixels READ bodyPixels NOTIFY fontsChanged)
    Q_PROPERTY(double captionPixels READ captionPixels NOTIFY fontsChanged)
    /// How thick a thin line is: as many whole device pixels as one takes, at least one.
    Q_PROPERTY(double hairline READ hairline NOTIFY fontsChanged)
    /// How long the caret's blinking takes, on and off, in milliseconds; 0 where it is not to blink.
    Q_PROPERTY(int caretFlash READ caretFlash CONSTANT)
    /// Whether the system asks for as little movement as can be; it is asked anew whenever it has changed its font.
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY fontsChanged)

    explicit PlatformStyle(QObject* parent = nullptr);

    int title2Symbol() const {
        return symbolBox(pixels(fonts_.title2));
    }
    int title3Symbol() const {
        return symbolBox(pixels(fonts_.title3));
    }
    int bodySymbol() const {
        return symbolBox(pixels(fonts_.body));
    }
    int captionSymbol() const {
        return symbolBox(pixels(fonts_.caption));
    }
    int caption2Symbol() const {
        return symbolBox(pixels(fonts_.monoCaption2));
    }
    double bodyPixels() const {
        return pixels(fonts_.body);
    }
    double captionPixels() const {
        return pixels(fonts_.caption);
    }
    static double hairline();
    static int caretFlash();
    bool reducedMotion() const {
        return reducedMotion_;
    }

    /// `font` for `text`, which is read character by character, as names and paths are: without ligatures and
    /// contextual forms ("1x7" with a multiplication sign), wherever every character of the text can do without any.
    Q_INVOKABLE static QFont verbatim(QFont font, const QString& text);

    /// The side of the square in which a symbol beside a text of `pixels` is drawn: an even number.
    Q_INVOKABLE static int symbolBox(double pixels);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void coloursChanged();
    void fontsChanged();

private:
    struct Fonts {
        QFont title2, title3, title3Semibold, headline, body, bodySemibold, caption, captionCapitals, monoBody,
            monoBodyMedium, monoCaption, monoCaption2;
    };

    static QColor qtColour(Colour colour);
    static double pixels(const QFont& font);
    void readColours();
    void readFonts();
    void followFonts();
    void followScale();

    ThemeColours colours_;
    Fonts fonts_;
    bool reducedMotion_ = false;
};

} // namespace tarvolt
