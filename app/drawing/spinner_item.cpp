#include "app/drawing/spinner_item.h"

#include <QPainter>

#include <cmath>

namespace tarvolt {

SpinnerItem::SpinnerItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &SpinnerItem::looksChanged, this, [this] { update(); });
}

void SpinnerItem::paint(QPainter* painter) {
    constexpr int sixteenthsPerDegree = 16;
    constexpr int top = 90;
    constexpr int quarter = 90;
    const double inset = thickness_ / 2;
    const QRectF ring = boundingRect().adjusted(inset, inset, -inset, -inset);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(trackColour_, thickness_));
    painter->drawEllipse(ring);
    painter->setPen(QPen(colour_, thickness_, Qt::SolidLine, Qt::RoundCap));
    const auto start = static_cast<int>(std::lround((top - angle_) * sixteenthsPerDegree));
    painter->drawArc(ring, start, -quarter * sixteenthsPerDegree);
}

} // namespace tarvolt
