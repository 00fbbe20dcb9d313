#include "app/bridge/symbol_item.h"

#include "app/bridge/symbol_drawing.h"

#include <QImage>
#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <cmath>

namespace tarvolt {

SymbolItem::SymbolItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

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
    update();
}

void SymbolItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    redraw();
}

void SymbolItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemSceneChange) {
        disconnect(frames_);
        if (data.window != nullptr) {
            frames_ = connect(data.window, &QQuickWindow::afterAnimating, this, &SymbolItem::followPosition);
        }
        redraw();
    }
    if (change == ItemDevicePixelRatioHasChanged) {
        redraw();
    }
    QQuickItem::itemChange(change, data);
}

/// An ancestor that moves tells nobody, and its new place may lie between device pixels.
void SymbolItem::followPosition() {
    if (isVisible() && snapOffset() != offset_) {
        update();
    }
}

QPointF SymbolItem::snapOffset() const {
    const double ratio = window() != nullptr ? window()->effectiveDevicePixelRatio() : 1;
    const QPointF corner = mapToScene({}) * ratio;
    return (QPointF(std::round(corner.x()), std::round(corner.y())) - corner) / ratio;
}

QSGNode* SymbolItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData* /*data*/) {
    auto* image = static_cast<QSGImageNode*>(node);
    const double ratio = window()->effectiveDevicePixelRatio();
    const int side = static_cast<int>(std::lround(std::min(width(), height()) * ratio));
    if (side <= 0 || !hasSymbol(symbol_)) {
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
    offset_ = snapOffset();
    image->setFiltering(QSGTexture::Linear);
    image->setRect(QRectF(offset_, QSizeF(side / ratio, side / ratio)));
    return image;
}

} // namespace tarvolt
