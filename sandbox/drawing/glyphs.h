#pragma once

#include <QPainterPath>
#include <QString>

/// The shape that a system symbol's name stands for, within the unit square; filled with the
/// odd-even rule. Empty for a name that is not known here.
[[nodiscard]] QPainterPath glyph(QStringView symbol);

/// The same, scaled into a rectangle.
[[nodiscard]] QPainterPath glyph(QStringView symbol, const QRectF &into);
