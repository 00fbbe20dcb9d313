#include "app/drawing/platform_style.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

TEST(PlatformStyleTest, StyledFontsHaveTheResolutionOfTheDisplay) {
    QImage printer(1, 1, QImage::Format_RGB32);
    constexpr int dotsPerMeter = 12000;
    printer.setDotsPerMeterX(dotsPerMeter);
    printer.setDotsPerMeterY(dotsPerMeter);
    const QFont forPrinter(QGuiApplication::font(), &printer);
    ASSERT_GT(QFontMetricsF(forPrinter).height(), QFontMetricsF(QGuiApplication::font()).height());
    EXPECT_EQ(QFontMetricsF(PlatformStyle::styled(forPrinter, 1, QFont::Normal)).height(),
              QFontMetricsF(PlatformStyle::styled(QGuiApplication::font(), 1, QFont::Normal)).height());
}

} // namespace
} // namespace tarvolt
