#pragma once

#include <QHash>
#include <QPainterPath>
#include <QRawFont>
#include <QString>

/// The font of symbols that is embedded in the program. It has most of the system's symbols; its
/// glyphs are named after them, with underscores for the dots.
class SymbolFont {
public:
    SymbolFont();

    /// The outline of a symbol by the system's name, 1 high and wide, its middle at the origin.
    /// Empty when the font lacks it.
    [[nodiscard]] QPainterPath outline(const QString &name) const;

private:
    QRawFont m_font;
    QHash<QByteArray, quint32> m_glyphs; ///< by name
};

/// The name of a symbol's glyph in the font; empty for what is no symbol's name.
[[nodiscard]] QByteArray symbolGlyphName(const QString &name);
/// The names in a font's table of glyph names, with the number of the glyph of each.
[[nodiscard]] QHash<QByteArray, quint32> glyphsByName(const QByteArray &postTable);
