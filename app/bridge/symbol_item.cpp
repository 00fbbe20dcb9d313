#include "app/bridge/symbol_item.h"

#include "app/bridge/symbol_drawing.h"

#include <QImage>
#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>

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

void SymbolItem::redraw() {
    drawn_ = false;
    SnappedItem::redraw();
}

QSGNode* SymbolItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData* /*data*/) {
    auto* image = static_cast<QSGImageNode*>(node);
    const QRectF box = snappedRect();
    const int side = static_cast<int>(std::lround(box.width() * pixelRatio()));
    if (width() <= 0 || !hasSymbol(symbol_)) {
        delete image;
        return nullptr;
    }
    if (image == nullptr) {
        image = window()->createImageNode();
        image->setOwnsTexture(true);
        drawn_ = false;
    }
    if (!drawn_) {
        QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawSymbol(painter, symbol_, side, width(), colour_);
        painter.end();
        image->setTexture(window()->createTextureFromImage(picture, QQuickWindow::TextureHasAlphaChannel));
        drawn_ = true;
    }
    image->setFiltering(QSGTexture::Linear);
    image->setRect(box);
    return image;
}

} // namespace tarvolt
