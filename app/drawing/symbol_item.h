#pragma once

#include "app/drawing/snapped_item.h"

#include <QColor>
#include <QPixmap>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// A symbol drawn in one colour for exactly the device pixels it covers, nothing where there is none of that name. The
/// base is named in full because the type registrar of Qt 6.4 looks it up by exactly these words.
class SymbolItem : public tarvolt::SnappedItem {
    Q_OBJECT
    QML_ELEMENT
    /// The name of a drawing among the symbols, without its ending.
    Q_PROPERTY(QString symbol MEMBER symbol_ NOTIFY looksChanged REQUIRED)
    Q_PROPERTY(QColor colour MEMBER colour_ NOTIFY looksChanged REQUIRED)
    /// How far the drawing is turned around its middle: degrees, clockwise.
    Q_PROPERTY(double angle MEMBER angle_ NOTIFY looksChanged)

public:
    using SnappedItem::SnappedItem;

protected:
    void draw(QPainter& painter, const QRectF& box) const override;

private:
    QString symbol_;
    QColor colour_;
    double angle_ = 0;
};

/// The program's own icon, `side` pixels wide. A small one has no margin and a larger house.
QPixmap applicationIcon(int side);

} // namespace tarvolt
