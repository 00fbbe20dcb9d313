#pragma once

#include <QImage>
#include <QPainter>
#include <QQuickItem>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// An item that is one picture, which lies on whole device pixels wherever its ancestors put it, also at a scale of one
/// and a half. Items that end at the same place, one above the other or side by side, end at the same pixel; only what
/// is small keeps its size whatever its place.
class SnappedItem : public QQuickItem {
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit SnappedItem(QQuickItem* parent = nullptr);

signals:
    /// `draw` would draw something else.
    void looksChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

    /// Draws the item for the device pixels in `box`, at least one each way, whose corner is the painter's origin.
    virtual void draw(QPainter& painter, const QRectF& box) const = 0;

    QImage picture(QSize pixels) const;
    double pixelRatio() const;

private:
    void redraw();
    void followPosition();
    QRectF nearestRect() const;

    bool drawn_ = false; ///< the picture in the scene is up to date
    QRectF snapped_;     ///< where it lies, in the item's own coordinates
    QMetaObject::Connection frames_;
};

} // namespace tarvolt
