#include "app/drawing/platform_style.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QPixmap>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace tarvolt {

namespace {

/// The system font's size; a platform may give it in pixels.
double systemPoints() {
    const QFont font = QGuiApplication::font();
    return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() / PlatformStyle::pixelsPerPoint();
}

/// Whether the look or the position of `unit` depends on its neighbours.
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
    default: // other scripts, combining accents, surrogates
        return true;
    }
}

} // namespace

PlatformStyle::PlatformStyle(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
    // The signal comes before the new value applies.
    connect(QGuiApplication::primaryScreen(), &QScreen::physicalDotsPerInchChanged, this, &PlatformStyle::followScale,
            Qt::QueuedConnection);
}

bool PlatformStyle::eventFilter(QObject* watched, QEvent* event) {
    bool changed = watched == qApp && event->type() == QEvent::ApplicationFontChange;
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    changed = changed || event->type() == QEvent::DevicePixelRatioChange;
#endif
    if (changed) {
        emit settingsChanged();
    }
    return false;
}

/// The toolkit keeps the size of a window's content, but not that of the window around it, until it is resized.
void PlatformStyle::followScale() {
    emit settingsChanged();
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        const QSize size = window->size();
        window->resize(size.width() + 1, size.height());
        window->resize(size);
    }
}

QFont PlatformStyle::systemFont() {
    return QGuiApplication::font();
}

QFont PlatformStyle::fixedFont() {
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

double PlatformStyle::pixelsPerPoint() {
    constexpr double pointsPerInch = 72;
    return QGuiApplication::primaryScreen()->logicalDotsPerInchY() / pointsPerInch;
}

double PlatformStyle::hairline() {
    // On Wayland a screen's scale is rounded up, and only a window has the real one. Windows are listed newest first.
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const double ratio = windows.isEmpty() ? qGuiApp->devicePixelRatio() : windows.last()->devicePixelRatio();
    return std::max(1.0, std::floor(ratio)) / ratio;
}

bool PlatformStyle::reducedMotion() {
    return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0;
}

QFont PlatformStyle::styled(QFont family, double ratio, int weight, double tracking) {
    constexpr double leastPixels = 9;
    // On Wayland the toolkit reads the system's fonts before it knows the display and gives them another resolution.
    const QPixmap display(1, 1);
    family = QFont(family, &display);
    // In points, because a size in pixels can only be a whole one.
    family.setPointSizeF(std::max(systemPoints() * ratio, leastPixels / pixelsPerPoint()));
    family.setWeight(static_cast<QFont::Weight>(weight));
    if (tracking != 0) {
        family.setLetterSpacing(QFont::AbsoluteSpacing, tracking);
    }
    // On a scaled display, hints would fit the letters to the pixels of another size. The toolkit itself takes care of
    // that only for fonts that it loads after the scale is set.
    family.setHintingPreference(qGuiApp->devicePixelRatio() == 1 ? QFont::PreferDefaultHinting
                                                                 : QFont::PreferNoHinting);
    return family;
}

QFont PlatformStyle::verbatim(QFont font, const QString& text) {
    if (std::ranges::none_of(text, needsShaping)) {
        font.setStyleStrategy(QFont::PreferNoShaping);
    }
    return font;
}

int PlatformStyle::symbolBox(double pixels) {
    constexpr double symbolToText = 1.3;
    return 2 * static_cast<int>(std::lround(pixels * symbolToText / 2));
}

} // namespace tarvolt
