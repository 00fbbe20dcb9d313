#pragma once

#include "app/drawing/snapped_item.h"

#include <QColor>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// A filled rectangle with equally sharp edges on all sides, optionally with rounded corners and a border. The border
/// lies inside the item, around the fill, and is a whole number of device pixels wide, at least one. The base is named
/// in full because the type registrar of Qt 6.4 looks it up by exactly these words.
class BoxItem : public tarvolt::SnappedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY looksChanged)
    Q_PROPERTY(double radius MEMBER radius_ NOTIFY looksChanged)
    Q_PROPERTY(double borderWidth MEMBER borderWidth_ NOTIFY looksChanged)
    Q_PROPERTY(QColor borderColor MEMBER borderColor_ NOTIFY looksChanged)

public:
    using SnappedItem::SnappedItem;

protected:
    void draw(QPainter& painter, const QRectF& box) const override;

private:
    QColor color_ = Qt::transparent;
    double radius_ = 0;
    double borderWidth_ = 0;
    QColor borderColor_ = Qt::transparent;
};

} // namespace tarvolt
