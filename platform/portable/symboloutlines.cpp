#include "platform/portable/symboloutlines.h"

#include "platform/portable/drawnsymbols.h"
#include "platform/portable/symbolfont.h"

#include <QHash>

#include <algorithm>

namespace {

QList<QPainterPath> piecesOf(const QPainterPath &path)
{
    QList<QPainterPath> pieces;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            pieces.append(QPainterPath(element));
            continue;
        }
        if (element.isLineTo())
            pieces.last().lineTo(element);
        else if (element.isCurveTo())
            pieces.last().cubicTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
    }
    return pieces;
}

qreal extent(const QPainterPath &path)
{
    const QRectF box = path.controlPointRect();
    return box.width() * box.height();
}

} // namespace

QPainterPath symbolOutline(const QString &name)
{
    static const SymbolFont font; // read when the first symbol is drawn
    static QHash<QString, QPainterPath> known;
    if (const auto found = known.constFind(name); found != known.cend())
        return *found;
    const auto fromFont = [](const QString &other) { return font.outline(other); };
    QPainterPath outline = drawnSymbol(name, fromFont);
    if (outline.isEmpty())
        outline = font.outline(name);
    if (!outline.isEmpty())
        known.insert(name, outline);
    return outline;
}

SymbolLayers symbolLayers(const QPainterPath &outline)
{
    SymbolLayers layers;
    QList<QPainterPath> pieces = piecesOf(outline);
    if (pieces.isEmpty())
        return layers;
    const auto shape = std::ranges::max_element(pieces, {}, extent);
    layers.shape = *shape;
    pieces.erase(shape);
    layers.mark.setFillRule(Qt::WindingFill);
    for (const QPainterPath &piece : pieces)
        layers.mark.addPath(piece);
    return layers;
}
