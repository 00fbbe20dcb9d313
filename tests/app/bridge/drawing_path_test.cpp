#include "app/bridge/drawing_path.h"
#include "app/bridge/symbol_drawing.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

namespace tarvolt {
namespace {

TEST(DrawingPathTest, ReadsAbsoluteAndRelativeCommandsPackedClosely) {
    const QPainterPath path = drawingPath("M1 2h3v4L-1-2.5.5.5l1,1Zm1 1");
    ASSERT_EQ(path.elementCount(), 8);
    const QPointF expected[] = {{1, 2}, {4, 2}, {4, 6}, {-1, -2.5}, {.5, .5}, {1.5, 1.5}, {1, 2}, {2, 3}};
    for (int i = 0; i < path.elementCount(); ++i) {
        EXPECT_EQ(QPointF(path.elementAt(i)), expected[i]) << i;
    }
}

struct ArcRow {
    const char* data;
    QRectF bounds;
};

TEST(DrawingPathTest, DrawsArcsTheWayTheirFlagsSay) {
    const ArcRow rows[] = {
        {"M0 0A10 10 0 0 1 10 10", {0, 0, 10, 10}},   {"M0 0A10 10 0 0 0 10 10", {0, 0, 10, 10}},
        {"M0 0A10 10 0 1 1 10 10", {0, -10, 20, 20}}, {"M0 0A10 10 0 1 0 10 10", {-10, 0, 20, 20}},
        {"M0 0a5 5 0 0 1 10 0", {0, -5, 10, 5}},      {"M0 0a5 5 0 0 0 10 0", {0, 0, 10, 5}},
        {"M0 0a1 1 0 0 1 10 0", {0, -5, 10, 5}},      {"M3 3a5 5 0 0 1 0 0", {3, 3, 0, 0}},
    };
    for (const auto& row : rows) {
        const QRectF bounds = drawingPath(row.data).boundingRect();
        EXPECT_NEAR(bounds.left(), row.bounds.left(), 0.01) << row.data;
        EXPECT_NEAR(bounds.top(), row.bounds.top(), 0.01) << row.data;
        EXPECT_NEAR(bounds.right(), row.bounds.right(), 0.01) << row.data;
        EXPECT_NEAR(bounds.bottom(), row.bounds.bottom(), 0.01) << row.data;
    }
}

TEST(DrawingPathTest, DrawsCurves) {
    const QRectF bounds = drawingPath("M0 0c0 10 10 10 10 0").boundingRect();
    EXPECT_NEAR(bounds.bottom(), 7.5, 0.01);
    EXPECT_NEAR(bounds.right(), 10, 0.01);
}

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
