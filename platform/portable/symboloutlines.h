#pragma once

#include <QPainterPath>
#include <QString>

/// The outline of a symbol by the system's name, its middle at the origin and 1 the height of its
/// font: from the font of symbols, drawn here where that lacks it. Empty for an unknown name. Main
/// thread.
[[nodiscard]] QPainterPath symbolOutline(const QString &name);

/// An outline that is filled with two colours.
struct SymbolLayers {
    QPainterPath shape;
    QPainterPath mark; ///< empty when the shape is one piece
};
/// Takes the mark that is cut out of a shape for a layer of its own.
[[nodiscard]] SymbolLayers symbolLayers(const QPainterPath &outline);
