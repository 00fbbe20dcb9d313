#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QQuickItem>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// An item that is one picture, which lies on whole device pixels wherever its ancestors put it, even at a scale
/// of 1.5. Items that end at the same place, one above the other or side by side, end at the same pixel; only small
/// items keep their size wherever they are. The items below name this class in full as their base, because the type
/// registrar of Qt 6.4 looks it up by exactly this text.
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

/// A filled rectangle with equally sharp edges on all sides, optionally with rounded corners and a border. The border
/// lies inside the item, around the fill, and is a whole number of device pixels wide, at least one.
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

/// A symbol drawn in one colour for exactly the device pixels it covers. An unknown name draws nothing.
class SymbolItem : public tarvolt::SnappedItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(Symbol)
    /// The name of a drawing among the symbols, without its ending.
    Q_PROPERTY(QString symbol MEMBER symbol_ NOTIFY looksChanged REQUIRED)
    Q_PROPERTY(QColor colour MEMBER colour_ NOTIFY looksChanged REQUIRED)
    /// The side of its square, unless it is given another size.
    Q_PROPERTY(double size READ implicitWidth WRITE setSide NOTIFY implicitWidthChanged REQUIRED)
    /// The drawing's rotation about its centre: degrees, clockwise.
    Q_PROPERTY(double angle MEMBER angle_ NOTIFY looksChanged)

public:
    using SnappedItem::SnappedItem;

    void setSide(double side) { setImplicitSize(side, side); }

protected:
    void draw(QPainter& painter, const QRectF& box) const override;

private:
    QString symbol_;
    QColor colour_;
    double angle_ = 0;
};

/// The program's own icon, `side` pixels wide. A small one has a drawing of its own.
QPixmap applicationIcon(int side);

} // namespace tarvolt
