#include "app/drawing/shadow_item.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarvolt {

namespace {

constexpr double reachInSigmas = 2;

/// How much of the shadow's strength each of the nested rectangles adds, from the widest in: a bell curve, sum 1.
std::vector<double> bellCurve(int steps) {
    std::vector<double> shares;
    double sum = 0;
    for (int step = 0; step < steps; ++step) {
        const double sigmas = reachInSigmas * (2.0 * (step + 0.5) / steps - 1);
        shares.push_back(std::exp(-sigmas * sigmas / 2));
        sum += shares.back();
    }
    std::ranges::for_each(shares, [sum](double& share) { share /= sum; });
    return shares;
}

} // namespace

ShadowItem::ShadowItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &ShadowItem::shapeChanged, this, [this] { update(); });
}

double ShadowItem::reach() const {
    return reachInSigmas * sigma_;
}

void ShadowItem::paint(QPainter* painter) {
    // Each rectangle lies over the wider ones before it; its own alpha is what brings the sum to where it should be.
    const int steps = std::max(2, static_cast<int>(std::ceil(2 * reach())));
    painter->setPen(Qt::NoPen);
    double reached = 0;
    double wanted = 0;
    const auto shares = bellCurve(steps);
    for (int step = 0; step < steps; ++step) {
        wanted += shares[static_cast<std::size_t>(step)] * colour_.alphaF();
        QColor layer = colour_;
        layer.setAlphaF(static_cast<float>((wanted - reached) / (1 - reached)));
        reached = wanted;
        const double inset = 2 * reach() * (step + 0.5) / steps;
        const double corner = std::max(0.0, radius_ + reach() - inset);
        painter->setBrush(layer);
        painter->drawRoundedRect(boundingRect().adjusted(inset, inset, -inset, -inset), corner, corner);
    }
}

} // namespace tarvolt
