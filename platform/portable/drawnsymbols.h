#pragma once

#include <QPainterPath>
#include <QString>

#include <functional>

/// Gives the outline of a symbol of the font.
using SymbolOutlines = std::function<QPainterPath(const QString &name)>;

/// The symbols that the font of symbols lacks, drawn or put together of its others, in the same
/// measures. Empty for any other name.
[[nodiscard]] QPainterPath drawnSymbol(const QString &name, const SymbolOutlines &font);
