#include "app/drawing/symbol_drawing.h"

#include "app/drawing/drawing_path.h"

#include <QLinearGradient>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvolt {

namespace {

constexpr double grid = 24;
constexpr double strokeWidth = 1.75;
constexpr double largeStrokeWidth = 1.5;
constexpr double largeFrom = 32;

/// A drawing on a grid of 24: what is stroked and what is filled, even-odd.
struct Symbol {
    std::string_view name;
    std::string_view stroked;
    std::string_view filled;
};

constexpr std::string_view house =
    "M10.5 2.85a2.25 2.25 0 0 1 3 0l8.8 7.9a1.1 1.1 0 0 1-.74 1.92H20.5V19a2.5 2.5 0 0 1-2.5 2.5H6A2.5 2.5 0 0 1 3.5 "
    "19v-6.33H2.44a1.1 1.1 0 0 1-.74-1.92ZM11.75 8.3v6.2a2.4 2.4 0 1 0 1.5 2.1v-6l2.1.64a.6.6 0 0 0 .78-.57V9.5a.6.6 0 "
    "0 0-.43-.57l-3.17-1.2a.6.6 0 0 0-.78.57Z";

constexpr std::array symbols{
    Symbol{
        "folder",
        "M3.33 17.06V6.94A2.27 2.27 0 0 1 5.6 4.67H8.83a2.27 2.27 0 0 1 1.6.66l.93.93a2.27 2.27 0 0 0 1.6.66H18.4a2.27 "
        "2.27 0 0 1 2.27 2.27v7.87a2.27 2.27 0 0 1-2.27 2.27H5.6a2.27 2.27 0 0 1-2.27-2.27Z",
        ""},
    Symbol{"folder.badge.plus",
           "M11 19.33H5.6a2.27 2.27 0 0 1-2.27-2.27V6.94A2.27 2.27 0 0 1 5.6 4.67H8.83a2.27 2.27 0 0 1 "
           "1.6.66l.93.93a2.27 2.27 0 0 0 1.6.66H18.4a2.27 2.27 0 0 1 2.27 2.27V10.6M14.1 17.25H21.4M17.75 13.6V20.9",
           ""},
    Symbol{"magnifyingglass",
           "M17.25 10.5A6.75 6.75 0 0 1 10.5 17.25A6.75 6.75 0 0 1 3.75 10.5A6.75 6.75 0 0 1 10.5 3.75A6.75 6.75 0 0 1 "
           "17.25 10.5ZM15.4 15.4L20.5 20.5",
           ""},
    Symbol{"arrow.clockwise", "M19.97 13.1A8.05 8.05 0 1 1 19.33 8.67M19.33 4v4.67H14.66", ""},
    Symbol{
        "lock.shield.fill", "",
        "M11.55 2.3a1.3 1.3 0 0 1 .9 0l6.45 2.4a1.3 1.3 0 0 1 .85 1.22V11c0 5.2-3.1 8.75-7.2 10.75a1.25 1.25 0 0 1-1.1 "
        "0C7.35 19.75 4.25 16.2 4.25 11V5.92A1.3 1.3 0 0 1 5.1 4.7Z"
        "M9.6 10.75V9.2a2.4 2.4 0 0 1 4.8 0V10.75H14.5a1 1 0 0 1 1 1V15a1 1 0 0 1-1 1H9.5a1 1 0 0 1-1-1V11.75a1 1 0 0 "
        "1 1-1ZM11 10.75V9.2a1 1 0 0 1 2 0V10.75Z"},
    Symbol{
        "music.note", "",
        "M11.25 4.1a1.05 1.05 0 0 1 1.35-1l4.6 1.4A1.1 1.1 0 0 1 18 5.55V8.1a.9.9 0 0 1-1.16.86L13 7.8v9.6a3.25 3.25 0 "
        "1 1-1.75-2.88Z"},
    Symbol{
        "music.note.list", "M2.9 5.4H12.2M2.9 10.2H12.2M2.9 15H7.4",
        "M15.5 5a1.05 1.05 0 0 1 1.35-1l3.55 1.08a1.1 1.1 0 0 1 .8 1.05V8.5a.9.9 0 0 1-1.16.86l-2.79-.84v9.38a3.1 3.1 "
        "0 1 1-1.75-2.77Z"},
    Symbol{"doc",
           "M13.3 2.57H6.54A2.25 2.25 0 0 0 4.29 4.82V19.18A2.25 2.25 0 0 0 6.54 21.43H17.46A2.25 2.25 0 0 0 19.71 "
           "19.18V8.98ZM13.3 2.57V6.73A2.25 2.25 0 0 0 15.55 8.98H19.71",
           ""},
    Symbol{"internaldrive",
           "M4.82 6H19.18A2.25 2.25 0 0 1 21.43 8.25V15.75A2.25 2.25 0 0 1 19.18 18H4.82A2.25 2.25 0 0 1 2.57 "
           "15.75V8.25A2.25 2.25 0 0 1 4.82 6ZM2.57 12.4H21.43",
           "M18.9 15.2A1.2 1.2 0 0 1 16.5 15.2A1.2 1.2 0 0 1 18.9 15.2Z"},
    Symbol{
        "exclamationmark.triangle",
        "M4.85 19.71A2.25 2.25 0 0 1 2.9 16.34L10.05 3.93A2.25 2.25 0 0 1 13.95 3.93L21.1 16.34A2.25 2.25 0 0 1 19.15 "
        "19.71ZM12 8.4V12.4",
        "M13.2 16A1.2 1.2 0 0 1 10.8 16A1.2 1.2 0 0 1 13.2 16Z"},
    Symbol{"arrow.right", "M4 12H20M13.75 5.75L20 12l-6.25 6.25", ""},
    Symbol{"music.note.house.fill", "", house},
};

const Symbol* find(const QString& name) {
    const auto found = std::ranges::find(symbols, name.toStdString(), &Symbol::name);
    return found == symbols.end() ? nullptr : &*found;
}

} // namespace

bool hasSymbol(const QString& name) {
    return find(name) != nullptr;
}

void drawSymbol(QPainter& painter, const QString& name, double side, double nominalSide, const QColor& colour) {
    const Symbol* symbol = find(name);
    if (symbol == nullptr) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / grid, side / grid);
    const double width = nominalSide < largeFrom ? strokeWidth : largeStrokeWidth;
    painter.strokePath(drawingPath(symbol->stroked), QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(drawingPath(symbol->filled), colour);
    painter.restore();
}

QPixmap applicationIcon(int side) {
    constexpr double iconGrid = 32;
    constexpr int smallUpTo = 24;
    const bool isSmall = side <= smallUpTo;
    const QRectF tile = isSmall ? QRectF(0, 0, iconGrid, iconGrid) : QRectF(2, 2, 28, 28);
    const double radius = isSmall ? 7 : 6.5;
    const double houseScale = isSmall ? 26.0 / 21.2 : 0.86;
    const QPointF houseOrigin = isSmall ? QPointF(16 - 12 * houseScale, 16 - 11.9 * houseScale) : QPointF(5.7, 5.25);

    QPixmap icon(side, side);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / iconGrid, side / iconGrid);
    QLinearGradient shade(tile.topLeft(), tile.bottomLeft());
    shade.setColorAt(0, QColor(0xFF, 0x9B, 0x3F));
    shade.setColorAt(1, QColor(0xDB, 0x5A, 0x00));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawRoundedRect(tile, radius, radius);
    painter.translate(houseOrigin);
    painter.scale(houseScale, houseScale);
    painter.fillPath(drawingPath(house), Qt::white);
    return icon;
}

} // namespace tarvolt
