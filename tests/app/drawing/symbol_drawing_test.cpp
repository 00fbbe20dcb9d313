#include "app/drawing/symbol_drawing.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

/// The ink that is drawn, as a rectangle on the grid of 24.
QRectF ink(const QString& name) {
    constexpr int scale = 20;
    QImage image(24 * scale, 24 * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawSymbol(painter, name, 24 * scale, 20, Qt::black);
    painter.end();
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 127) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return {bounds.x() / double(scale), bounds.y() / double(scale), bounds.width() / double(scale),
            bounds.height() / double(scale)};
}

TEST(SymbolDrawingTest, DrawsEverySymbolOfTheWindowInsideItsBox) {
    for (const char* name : {"music.note.house.fill", "folder.badge.plus", "folder", "lock.shield.fill",
                             "magnifyingglass", "arrow.clockwise", "music.note.list", "music.note", "doc",
                             "internaldrive", "exclamationmark.triangle", "arrow.right"}) {
        EXPECT_TRUE(hasSymbol(name)) << name;
        const QRectF drawn = ink(name);
        EXPECT_GE(drawn.width(), 9) << name;
        EXPECT_GE(drawn.height(), 12) << name;
        EXPECT_TRUE(QRectF(0, 0, 24, 24).contains(drawn)) << name;
        EXPECT_GT(drawn.left(), 0) << name;
        EXPECT_LT(drawn.right(), 24) << name;
    }
    EXPECT_FALSE(hasSymbol("no such symbol"));
}

TEST(SymbolDrawingTest, DrawsTheApplicationsIconInEverySize) {
    for (const int side : {16, 24, 32, 48, 256}) {
        const QImage icon = applicationIcon(side).toImage();
        EXPECT_EQ(icon.size(), QSize(side, side));
        EXPECT_EQ(icon.pixelColor(side / 2, side * 4 / 5 - 1).alpha(), 255);
    }
}

} // namespace
} // namespace tarvolt
