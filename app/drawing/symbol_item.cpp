#include "app/drawing/symbol_item.h"

#include "app/drawing/symbol_drawing.h"

namespace tarvolt {

void SymbolItem::setSymbol(const QString& symbol) {
    if (symbol != symbol_) {
        symbol_ = symbol;
        redraw();
        emit symbolChanged();
    }
}

void SymbolItem::setColour(const QColor& colour) {
    if (colour != colour_) {
        colour_ = colour;
        redraw();
        emit colourChanged();
    }
}

QImage SymbolItem::picture(QSize pixels) const {
    if (!hasSymbol(symbol_)) {
        return {};
    }
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawSymbol(painter, symbol_, pixels.width(), width(), colour_);
    return image;
}

} // namespace tarvolt
