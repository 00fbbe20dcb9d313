#include "app/drawing/box_item.h"

#include <QPainter>
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

QImage BoxItem::picture(QSize pixels) const {
    const double ratio = pixelRatio();
    // The thinner where two whole numbers of pixels are as near.
    const double border = borderWidth_ > 0 ? std::max(1.0, std::ceil(borderWidth_ * ratio - 0.5)) : 0;
    const double radius = radius_ * ratio;
    const QRectF outer(QPointF(), pixels);
    const QRectF inner = outer.adjusted(border, border, -border, -border);
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath middle = rounded(inner, radius - border);
    painter.fillPath(middle, color_);
    if (border > 0) {
        painter.fillPath(rounded(outer, radius).subtracted(middle), borderColor_);
    }
    return image;
}

} // namespace tarvolt
