#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// The soft shadow of a rounded rectangle. The item is `reach` larger than the rectangle on every side.
class ShadowItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double radius MEMBER radius_ NOTIFY shapeChanged REQUIRED)
    Q_PROPERTY(double sigma MEMBER sigma_ NOTIFY shapeChanged REQUIRED)
    Q_PROPERTY(double reach READ reach NOTIFY shapeChanged)
    Q_PROPERTY(QColor colour MEMBER colour_ NOTIFY shapeChanged REQUIRED)

public:
    explicit ShadowItem(QQuickItem* parent = nullptr);

    double reach() const;
    void paint(QPainter* painter) override;

signals:
    void shapeChanged();

private:
    double radius_ = 0;
    double sigma_ = 0; ///< of the bell curve that the shadow fades along
    QColor colour_;    ///< its alpha is that of the shadow's middle
};

} // namespace tarvolt
