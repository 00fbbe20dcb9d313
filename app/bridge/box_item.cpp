#include "app/bridge/box_item.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGImageNode>

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

BoxItem::BoxItem(QQuickItem* parent) : SnappedItem(parent) {
    connect(this, &BoxItem::looksChanged, this, &BoxItem::redraw);
}

void BoxItem::redraw() {
    drawn_ = false;
    SnappedItem::redraw();
}

QImage BoxItem::picture(QSize pixels) const {
    const double ratio = pixelRatio();
    const double border = borderWidth_ > 0 ? std::max(1.0, std::floor(borderWidth_ * ratio)) : 0;
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

QSGNode* BoxItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData* /*data*/) {
    auto* image = static_cast<QSGImageNode*>(node);
    if (width() <= 0 || height() <= 0) {
        delete image;
        return nullptr;
    }
    const QRectF box = snappedRect();
    if (image == nullptr) {
        image = window()->createImageNode();
        image->setOwnsTexture(true);
        drawn_ = false;
    }
    const QSize pixels = (box.size() * pixelRatio()).toSize();
    if (!drawn_ || image->texture()->textureSize() != pixels) {
        image->setTexture(window()->createTextureFromImage(picture(pixels), QQuickWindow::TextureHasAlphaChannel));
        drawn_ = true;
    }
    image->setRect(box);
    return image;
}

} // namespace tarvolt
