#pragma once

#include <QColor>
#include <QQuickItem>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// A symbol drawn in one opaque colour for exactly the device pixels it covers; the item's opacity fades it as a whole.
class SymbolItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString symbol READ symbol WRITE setSymbol NOTIFY symbolChanged REQUIRED)
    Q_PROPERTY(QColor colour READ colour WRITE setColour NOTIFY colourChanged REQUIRED)

public:
    explicit SymbolItem(QQuickItem* parent = nullptr);

    QString symbol() const { return symbol_; }
    void setSymbol(const QString& symbol);
    QColor colour() const { return colour_; }
    void setColour(const QColor& colour);

signals:
    void symbolChanged();
    void colourChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

private:
    void redraw();
    void followPosition();
    QPointF snapOffset() const;

    QString symbol_;
    QColor colour_;
    bool drawn_ = false; ///< the picture in the scene is up to date
    QPointF offset_;     ///< from the item's corner to the nearest whole device pixel
    QMetaObject::Connection frames_;
};

} // namespace tarvolt
