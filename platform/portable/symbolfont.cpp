#include "platform/portable/symbolfont.h"

#include <QResource>
#include <QTransform>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

// Outlines are scaled afterwards: taken at a size at which the font's own units are whole pixels.
constexpr qreal unitsPerEm = 512;

// The glyphs that the table of names knows by number alone, as far as they are symbols.
constexpr quint16 firstOwnName = 258;
using CommonName = std::pair<quint16, const char *>;
constexpr auto commonNames = std::to_array<CommonName>(
    {{8, "percent"}, {14, "plus"}, {16, "minus"}, {32, "equal"}, {35, "at"}, {171, "ellipsis"}});

QByteArray commonName(quint16 number)
{
    const auto *const found = std::ranges::find(commonNames, number, &CommonName::first);
    return found == commonNames.end() ? QByteArray() : QByteArray(found->second);
}

quint16 numberAt(const QByteArray &bytes, qsizetype position)
{
    return position + 2 <= bytes.size() ? qFromBigEndian<quint16>(bytes.constData() + position) : 0;
}

// Each is preceded by its length.
QList<QByteArray> namesFrom(const QByteArray &bytes, qsizetype position)
{
    QList<QByteArray> names;
    while (position < bytes.size()) {
        const auto length = static_cast<uchar>(bytes.at(position));
        names.append(bytes.mid(position + 1, length));
        position += 1 + length;
    }
    return names;
}

// The bytes where they are in the program, which outlives the font.
QByteArray embeddedFont()
{
    const QResource font(QStringLiteral(":/symbols/symbols.ttf"));
    return QByteArray::fromRawData(reinterpret_cast<const char *>(font.data()),
                                   qsizetype(font.size()));
}

QPainterPath centred(const QPainterPath &path)
{
    const QPointF middle = path.boundingRect().center();
    return path.translated(-middle) * QTransform::fromScale(1 / unitsPerEm, 1 / unitsPerEm);
}

} // namespace

QByteArray symbolGlyphName(const QString &name)
{
    const bool isSymbolName = std::ranges::all_of(name, [](QChar c) {
        return c == u'.' || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9');
    });
    if (!isSymbolName)
        return {};
    QByteArray glyph = name.toLatin1().replace('.', '_');
    if (glyph.startsWith("magnifyingglass"))
        glyph.replace("magnifyingglass", "search");
    if (glyph.startsWith("questionmark"))
        glyph.replace("questionmark", "question");
    return glyph;
}

// Version 2 of the table: a header of 32 bytes, the number of glyphs, a number per glyph, the
// names.
QHash<QByteArray, quint32> glyphsByName(const QByteArray &postTable)
{
    constexpr qsizetype header = 34;
    const quint16 count = numberAt(postTable, 32);
    const QList<QByteArray> names = namesFrom(postTable, header + qsizetype{2} * count);
    QHash<QByteArray, quint32> glyphs;
    glyphs.reserve(count);
    for (quint32 glyph = 0; glyph < count; ++glyph) {
        const quint16 number = numberAt(postTable, header + qsizetype{2} * glyph);
        const QByteArray name
            = number < firstOwnName ? commonName(number) : names.value(number - firstOwnName);
        if (!name.isEmpty())
            glyphs.insert(name, glyph);
    }
    return glyphs;
}

SymbolFont::SymbolFont()
    : m_font(embeddedFont(), unitsPerEm, QFont::PreferNoHinting)
    , m_glyphs(glyphsByName(m_font.fontTable("post")))
{
}

QPainterPath SymbolFont::outline(const QString &name) const
{
    const auto glyph = m_glyphs.constFind(symbolGlyphName(name));
    if (glyph == m_glyphs.cend())
        return {};
    return centred(m_font.pathForGlyph(*glyph));
}
