#pragma once

#include "app/drawing/snapped_item.h"

#include <QColor>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// A symbol drawn in one opaque colour for exactly the device pixels it covers; the item's opacity fades it as a whole.
/// The base is named in full because the type registrar of Qt 6.4 looks it up by exactly these words.
class SymbolItem : public tarvolt::SnappedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString symbol READ symbol WRITE setSymbol NOTIFY symbolChanged REQUIRED)
    Q_PROPERTY(QColor colour READ colour WRITE setColour NOTIFY colourChanged REQUIRED)

public:
    using SnappedItem::SnappedItem;

    QString symbol() const { return symbol_; }
    void setSymbol(const QString& symbol);
    QColor colour() const { return colour_; }
    void setColour(const QColor& colour);

signals:
    void symbolChanged();
    void colourChanged();

protected:
    QImage picture(QSize pixels) const override;

private:
    QString symbol_;
    QColor colour_;
};

} // namespace tarvolt
