#include "app/drawing/snapped_items.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

/// A symbol that tells what it draws.
class DrawnSymbol : public SymbolItem {
public:
    explicit DrawnSymbol(const QString& name, double side = 20) {
        setProperty("symbol", name);
        setProperty("colour", QColor(Qt::red));
        setSize(QSizeF(side, side));
    }
    using SymbolItem::picture;
};

constexpr int scale = 20;
constexpr QSize pixels(24 * scale, 24 * scale);

/// The ink of a picture, as a rectangle on the grid of 24.
QRectF ink(const QImage& image) {
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 127) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return {QPointF(bounds.topLeft()) / scale, QSizeF(bounds.size()) / scale};
}

QStringList symbols() {
    QStringList names = QDir(QStringLiteral(":/qt/qml/Tarvolt/symbols")).entryList();
    return names.replaceInStrings(QStringLiteral(".svg"), QString());
}

TEST(SymbolItemTest, DrawsEverySymbolInsideItsBox) {
    for (const char* name : {"music.note.house.fill", "folder.badge.plus", "folder", "lock.shield.fill",
                             "magnifyingglass", "arrow.clockwise", "music.note.list", "music.note", "doc",
                             "internaldrive", "exclamationmark.triangle", "arrow.right", "ring", "ring.quarter"}) {
        EXPECT_TRUE(symbols().contains(name)) << name;
    }
    for (const QString& name : symbols()) {
        const QRectF drawn = ink(DrawnSymbol(name).picture(pixels));
        EXPECT_GE(drawn.width(), 9) << name.toStdString();
        EXPECT_GE(drawn.height(), 12) << name.toStdString();
        EXPECT_TRUE(QRectF(0, 0, 24, 24).contains(drawn)) << name.toStdString();
    }
}

TEST(SymbolItemTest, DrawsInASingleColour) {
    const QImage image = DrawnSymbol("internaldrive").picture(pixels).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0) {
                ASSERT_EQ(image.pixel(x, y) & 0xFFFFFFU, 0xFF0000U) << x << ", " << y;
            }
        }
    }
}

TEST(SymbolItemTest, DrawsThinnerLinesWhenLarge) {
    const auto weight = [](double side) { return ink(DrawnSymbol("arrow.right", side).picture(pixels)).height(); };
    EXPECT_NEAR(weight(31) - weight(32), 0.25, 0.06);
}

TEST(SymbolItemTest, TurnsClockwiseAroundItsMiddle) {
    DrawnSymbol quarter("ring.quarter");
    const QRectF before = ink(quarter.picture(pixels));
    quarter.setProperty("angle", 90);
    const QRectF after = ink(quarter.picture(pixels));
    EXPECT_LT(before.top(), 0.5);
    EXPECT_GT(before.left(), 10);
    EXPECT_GT(after.top(), 10);
    EXPECT_NEAR(after.right(), before.right(), 0.1);
}

TEST(SymbolItemTest, DrawsNothingForAnUnknownSymbol) {
    EXPECT_TRUE(ink(DrawnSymbol("no such symbol").picture(pixels)).isEmpty());
}

TEST(SymbolItemTest, DrawsTheApplicationsIconInEverySize) {
    for (const int side : {16, 24, 32, 48, 256}) {
        const QImage icon = applicationIcon(side).toImage();
        EXPECT_EQ(icon.size(), QSize(side, side));
        EXPECT_EQ(icon.pixelColor(side / 2, side * 4 / 5 - 1).alpha(), 255) << side;
        EXPECT_EQ(icon.pixelColor(0, side / 2).alpha() == 255, side <= 24) << side << ": a small one has no margin";
    }
}

TEST(SymbolItemTest, TheApplicationsIconHasTheHouseOfTheWindow) {
    const auto outline = [](const QString& name) {
        QFile file(QStringLiteral(":/qt/qml/Tarvolt/symbols/%1.svg").arg(name));
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        const QByteArray svg = file.readAll();
        const qsizetype start = svg.indexOf(" d=\"");
        return svg.mid(start, svg.indexOf("/>", start) - start);
    };
    EXPECT_EQ(outline("tarvolt"), outline("music.note.house.fill"));
}

} // namespace
} // namespace tarvolt
