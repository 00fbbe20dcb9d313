#pragma once

#include <QQuickItem>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// An item whose picture lies on whole device pixels wherever its ancestors put it, also at a scale of one and a half.
class SnappedItem : public QQuickItem {
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit SnappedItem(QQuickItem* parent = nullptr);

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

    /// What was drawn no longer fits.
    virtual void redraw();

    /// The item's rectangle in its own coordinates, moved to the nearest whole device pixels. To be asked once for each
    /// picture: from then on the picture follows.
    QRectF snappedRect();

    double pixelRatio() const;

private:
    void followPosition();
    QRectF nearestRect() const;

    QRectF snapped_;
    QMetaObject::Connection frames_;
};

} // namespace tarvolt
