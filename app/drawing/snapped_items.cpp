#include "app/drawing/snapped_items.h"

#include <QFile>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace tarvolt {

namespace {

QPainterPath rounded(const QRectF& box, double radius) {
    QPainterPath path;
    path.addRoundedRect(box, std::max(0.0, radius), std::max(0.0, radius));
    return path;
}

/// The drawing of this name; empty where there is none.
QByteArray drawing(const QString& name) {
    QFile file(QStringLiteral(":/qt/qml/Tarvolt/symbols/%1.svg").arg(name));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

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
            // While an ancestor grows, the picture is stretched, and its edges should stay smooth.
            image->setFiltering(QSGTexture::Linear);
        }
        image->setTexture(window()->createTextureFromImage(picture(pixels), QQuickWindow::TextureHasAlphaChannel));
        drawn_ = true;
    }
    image->setRect(snapped_);
    return image;
}

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
    QPixmap icon(side, side);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    QSvgRenderer(drawing(side > TARVOLT_SMALL_ICON ? QStringLiteral("tarvolt") : QStringLiteral("tarvolt.small")))
        .render(&painter);
    return icon;
}

} // namespace tarvolt
