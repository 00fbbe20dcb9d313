#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// A ring with a quarter of it lit, which the scene turns.
class SpinnerItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double angle MEMBER angle_ NOTIFY looksChanged)
    Q_PROPERTY(double thickness MEMBER thickness_ NOTIFY looksChanged REQUIRED)
    Q_PROPERTY(QColor trackColour MEMBER trackColour_ NOTIFY looksChanged REQUIRED)
    Q_PROPERTY(QColor colour MEMBER colour_ NOTIFY looksChanged REQUIRED)

public:
    explicit SpinnerItem(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

signals:
    void looksChanged();

private:
    double angle_ = 0; ///< degrees, clockwise
    double thickness_ = 0;
    QColor trackColour_;
    QColor colour_;
};

} // namespace tarvolt
