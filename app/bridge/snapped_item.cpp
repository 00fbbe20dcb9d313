#include "app/bridge/snapped_item.h"

#include <QQuickWindow>

#include <algorithm>
#include <cmath>

namespace tarvolt {

SnappedItem::SnappedItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void SnappedItem::redraw() {
    update();
}

void SnappedItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    redraw();
}

void SnappedItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemSceneChange) {
        disconnect(frames_);
        if (data.window != nullptr) {
            frames_ = connect(data.window, &QQuickWindow::afterAnimating, this, &SnappedItem::followPosition);
        }
        redraw();
    }
    if (change == ItemDevicePixelRatioHasChanged) {
        redraw();
    }
    QQuickItem::itemChange(change, data);
}

/// An ancestor that moves tells nobody, and its new place may lie between device pixels.
void SnappedItem::followPosition() {
    if (isVisible() && nearestRect() != snapped_) {
        update();
    }
}

double SnappedItem::pixelRatio() const {
    return window() != nullptr ? window()->effectiveDevicePixelRatio() : 1;
}

QRectF SnappedItem::nearestRect() const {
    const double ratio = pixelRatio();
    const QPointF corner = mapToScene({}) * ratio;
    const QPointF moved(std::round(corner.x()) - corner.x(), std::round(corner.y()) - corner.y());
    const QSizeF pixels(std::max(1.0, std::round(width() * ratio)), std::max(1.0, std::round(height() * ratio)));
    return {moved / ratio, pixels / ratio};
}

QRectF SnappedItem::snappedRect() {
    snapped_ = nearestRect();
    return snapped_;
}

} // namespace tarvolt
