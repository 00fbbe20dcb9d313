#pragma once

#include <QColor>
#include <QPainter>
#include <QString>

namespace tarvolt {

/// Whether there is a drawing of this name.
bool hasSymbol(const QString& name);

/// Draws the symbol `name` in one colour into the square of `side` at the painter's origin. `nominalSide` is the side
/// that the reader sees, which decides on the weight of the lines.
void drawSymbol(QPainter& painter, const QString& name, double side, double nominalSide, const QColor& colour);

/// The program's own icon, `side` pixels wide.
QPixmap applicationIcon(int side);

} // namespace tarvolt
