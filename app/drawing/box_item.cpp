#include "app/drawing/box_item.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace tarvolt {

namespace {

QPainterPath rounded(const QRectF& box, double radius) {
    QPainterPath path;
    path.addRoundedRect(box, std::max(0.0, radius), std::max(0.0, radius));
    return path;
}

} // namespace

void BoxItem::draw(QPainter& painter, const QRectF& box) const {
    const double ratio = pixelRatio();
    // Halves are rounded down.
    const double border = borderWidth_ > 0 ? std::max(1.0, std::ceil(borderWidth_ * ratio - 0.5)) : 0;
    const double radius = radius_ * ratio;
    const QPainterPath middle = rounded(box.adjusted(border, border, -border, -border), radius - border);
    painter.fillPath(middle, color_);
    if (border > 0) {
        painter.fillPath(rounded(box, radius).subtracted(middle), borderColor_);
    }
}

} // namespace tarvolt
