#include "app/drawing/snapped_item.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <cmath>

namespace tarvolt {

SnappedItem::SnappedItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    connect(this, &SnappedItem::looksChanged, this, &SnappedItem::redraw);
}

void SnappedItem::redraw() {
    drawn_ = false;
    update();
}

void SnappedItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemSceneChange) {
        disconnect(frames_);
        if (data.window != nullptr) {
            frames_ = connect(data.window, &QQuickWindow::afterAnimating, this, &SnappedItem::followPosition);
        }
    }
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged) {
        redraw();
    }
    QQuickItem::itemChange(change, data);
}

/// Nothing signals that an ancestor has moved, and the new place or size may lie between device pixels.
void SnappedItem::followPosition() {
    if (isVisible() && nearestRect() != snapped_) {
        update();
    }
}

double SnappedItem::pixelRatio() const {
    return window() != nullptr ? window()->effectiveDevicePixelRatio() : 1;
}

/// The item's rectangle in its own coordinates, moved to the nearest whole device pixels; empty where the item is.
QRectF SnappedItem::nearestRect() const {
    if (width() <= 0 || height() <= 0) {
        return {};
    }
    const double ratio = pixelRatio();
    const auto wholeLength = [ratio](double start, double length) {
        constexpr double small = 32; // A pixel more or less would show in the shape of a dot or a symbol.
        return std::max(1.0, length <= small ? std::round(length * ratio)
                                             : std::round(start + length * ratio) - std::round(start));
    };
    const QPointF corner = mapToScene({}) * ratio;
    const QPointF moved(std::round(corner.x()) - corner.x(), std::round(corner.y()) - corner.y());
    const QSizeF pixels(wholeLength(corner.x(), width()), wholeLength(corner.y(), height()));
    return {moved / ratio, pixels / ratio};
}

QImage SnappedItem::picture(QSize pixels) const {
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter, QRectF(QPointF(), pixels));
    return image;
}

QSGNode* SnappedItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData* /*data*/) {
    auto* image = static_cast<QSGImageNode*>(node);
    snapped_ = nearestRect();
    const QSize pixels = (snapped_.size() * pixelRatio()).toSize();
    if (image == nullptr || !drawn_ || image->texture()->textureSize() != pixels) {
        if (pixels.isEmpty()) {
            delete image;
            return nullptr;
        }
        if (image == nullptr) {
            image = window()->createImageNode();
            image->setOwnsTexture(true);
            // While an ancestor grows, the picture is stretched, and its edges are to stay smooth.
            image->setFiltering(QSGTexture::Linear);
        }
        image->setTexture(window()->createTextureFromImage(picture(pixels), QQuickWindow::TextureHasAlphaChannel));
        drawn_ = true;
    }
    image->setRect(snapped_);
    return image;
}

} // namespace tarvolt
