#include "app/drawing/symbol_item.h"

#include <QFile>
#include <QSvgRenderer>

namespace tarvolt {

namespace {

/// The drawing of this name; empty where there is none.
QByteArray drawing(const QString& name) {
    QFile file(QStringLiteral(":/qt/qml/Tarvolt/symbols/%1.svg").arg(name));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void SymbolItem::draw(QPainter& painter, const QRectF& box) const {
    constexpr double largeFrom = 32;
    QByteArray svg = drawing(symbol_);
    if (svg.isEmpty()) {
        return;
    }
    if (width() >= largeFrom) {
        svg.replace("stroke-width=\"1.75\"", "stroke-width=\"1.5\""); // Large symbols look heavy with the usual lines.
    }
    painter.translate(box.center());
    painter.rotate(angle_);
    QSvgRenderer(svg).render(&painter, box.translated(-box.center()));
    painter.resetTransform();
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(box, colour_);
}

QPixmap applicationIcon(int side) {
    constexpr int smallUpTo = 24;
    constexpr double houseShare = 26.0 / 32;
    QPixmap icon(side, side);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    QSvgRenderer renderer(drawing(QStringLiteral("tarvolt")));
    const QRectF tile(0, 0, side, side);
    if (side > smallUpTo) {
        renderer.render(&painter, tile);
        return icon;
    }
    QRectF house = renderer.boundsOnElement(QStringLiteral("house"));
    house.setSize(house.size().scaled(tile.size() * houseShare, Qt::KeepAspectRatio));
    house.moveCenter(tile.center());
    renderer.render(&painter, QStringLiteral("tile"), tile);
    renderer.render(&painter, QStringLiteral("house"), house);
    return icon;
}

} // namespace tarvolt
