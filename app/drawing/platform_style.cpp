#include "app/drawing/platform_style.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QPalette>
#include <QScreen>
#include <QStyle>
#include <QStyleHints>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace tarvolt {

namespace {

// The text styles as ratios of the system font.
constexpr double title2Ratio = 17.0 / 13.0;
constexpr double title3Ratio = 15.0 / 13.0;
constexpr double bodyRatio = 1;
constexpr double captionRatio = 11.0 / 13.0;
constexpr double caption2Ratio = 10.0 / 13.0;
constexpr double leastPixels = 9;
constexpr double capitalsTracking = 0.3;
constexpr double symbolRatio = 1.3;
constexpr double pointsPerInch = 72;

Colour plainColour(const QColor& colour) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue()), 1};
}

double pixelsPerPoint() {
    return QGuiApplication::primaryScreen()->logicalDotsPerInchY() / pointsPerInch;
}

/// The system font's size; a platform may give it in pixels.
double systemPoints() {
    const QFont font = QGuiApplication::font();
    return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() / pixelsPerPoint();
}

/// `family`'s font at a ratio of the system font. Points, because a size in pixels can only be a whole one.
QFont styled(QFont family, double ratio, QFont::Weight weight) {
    family.setPointSizeF(std::max(systemPoints() * ratio, leastPixels / pixelsPerPoint()));
    family.setWeight(weight);
    // A hint moves what is drawn to the pixels of another size where the scale is not a whole one. The toolkit itself
    // sees to that only for fonts that it has loaded after the scale was set.
    family.setHintingPreference(qGuiApp->devicePixelRatio() == 1 ? QFont::PreferDefaultHinting
                                                                 : QFont::PreferNoHinting);
    return family;
}

QFont tracked(QFont font) {
    font.setLetterSpacing(QFont::AbsoluteSpacing, capitalsTracking);
    return font;
}

/// Whether what `unit` looks like, or where it stands, depends on its neighbours.
bool needsShaping(QChar unit) {
    switch (unit.script()) {
    case QChar::Script_Common:
    case QChar::Script_Latin:
    case QChar::Script_Greek:
    case QChar::Script_Cyrillic:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Han:
        return unit.isMark();
    default: // other scripts, accents of their own, halves of what takes two units
        return true;
    }
}

} // namespace

PlatformStyle::PlatformStyle(QObject* parent) : QObject(parent) {
    readColours();
    readFonts();
    qApp->installEventFilter(this);
    // Told of before it holds.
    connect(QGuiApplication::primaryScreen(), &QScreen::physicalDotsPerInchChanged, this, &PlatformStyle::followScale,
            Qt::QueuedConnection);
}

void PlatformStyle::readColours() {
    const QPalette palette = QGuiApplication::palette();
    colours_ = makeThemeColours({plainColour(palette.color(QPalette::Active, QPalette::Window)),
                                 plainColour(palette.color(QPalette::Active, QPalette::Base)),
                                 plainColour(palette.color(QPalette::Active, QPalette::WindowText))});
}

void PlatformStyle::readFonts() {
    const QFont system = QGuiApplication::font();
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fonts_ = {.title2 = styled(system, title2Ratio, QFont::Bold),
              .title3 = styled(system, title3Ratio, QFont::Normal),
              .title3Semibold = styled(system, title3Ratio, QFont::DemiBold),
              .headline = styled(system, bodyRatio, QFont::Bold),
              .body = styled(system, bodyRatio, QFont::Normal),
              .bodySemibold = styled(system, bodyRatio, QFont::DemiBold),
              .caption = styled(system, captionRatio, QFont::Normal),
              .captionCapitals = tracked(styled(system, captionRatio, QFont::DemiBold)),
              .monoBody = styled(fixed, bodyRatio, QFont::Normal),
              .monoBodyMedium = styled(fixed, bodyRatio, QFont::Medium),
              .monoCaption = styled(fixed, captionRatio, QFont::Normal),
              .monoCaption2 = styled(fixed, caption2Ratio, QFont::Normal)};
    reducedMotion_ = QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0;
}

bool PlatformStyle::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) {
        readColours();
        emit coloursChanged();
    }
    if (watched == qApp && event->type() == QEvent::ApplicationFontChange) {
        followFonts();
    }
    return false;
}

void PlatformStyle::followFonts() {
    readFonts();
    emit fontsChanged();
}

/// The toolkit keeps the size of a window's content, but not that of the window around it, until it gets another one.
void PlatformStyle::followScale() {
    followFonts();
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        const QSize size = window->size();
        window->resize(size.width() + 1, size.height());
        window->resize(size);
    }
}

double PlatformStyle::hairline() {
    const double ratio = qGuiApp->devicePixelRatio();
    return std::max(1.0, std::floor(ratio)) / ratio;
}

int PlatformStyle::caretFlash() {
    return QGuiApplication::styleHints()->cursorFlashTime();
}

QFont PlatformStyle::verbatim(QFont font, const QString& text) {
    if (std::ranges::none_of(text, needsShaping)) {
        font.setStyleStrategy(QFont::PreferNoShaping);
    }
    return font;
}

int PlatformStyle::symbolBox(double pixels) {
    return 2 * static_cast<int>(std::lround(pixels * symbolRatio / 2));
}

QColor PlatformStyle::qtColour(Colour colour) {
    QColor result(colour.red, colour.green, colour.blue);
    result.setAlphaF(static_cast<float>(colour.alpha));
    return result;
}

double PlatformStyle::pixels(const QFont& font) {
    return font.pointSizeF() * pixelsPerPoint();
}

} // namespace tarvolt
