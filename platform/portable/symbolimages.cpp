#include "platform/symbolimages.h"

#include "platform/portable/symboloutlines.h"

#include <QCache>
#include <QPainter>
#include <QPen>
#include <QRegularExpression>

#include <span>

namespace {

// The system draws a symbol larger than the letters of its point size: a circle is 1.1 as high.
constexpr qreal emPerPoint = 1.3;

// How much wider the lines of a weight are than regular ones, in parts of the font's height.
qreal addedWidth(QFont::Weight weight)
{
    constexpr qreal perHundred = 0.0075;
    return (static_cast<int>(weight) - static_cast<int>(QFont::Normal)) / 100.0 * perHundred;
}

void fill(QPainter &painter, const QPainterPath &path, const QColor &color, qreal added)
{
    painter.fillPath(path, color);
    if (added > 0)
        painter.strokePath(path, QPen(color, added, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

// Opaque, so that nothing shows where an outline overlaps what it surrounds.
QColor opaque(QColor color)
{
    color.setAlpha(255);
    return color;
}

void drawOneColor(QPainter &painter, const QPainterPath &outline, const QColor &color, qreal added)
{
    fill(painter, outline, opaque(color), added);
    if (added < 0) {
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        painter.strokePath(outline, QPen(Qt::black, -added));
    }
    painter.resetTransform();
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(painter.viewport(), QColor(0, 0, 0, color.alpha()));
}

void drawTwoColors(QPainter &painter, const QPainterPath &outline, const SymbolLook &look,
                   qreal added)
{
    const SymbolLayers layers = symbolLayers(outline);
    painter.fillPath(layers.shape, look.secondaryColor);
    fill(painter, layers.mark, look.color, added);
}

// A mark on a shape: the symbols that have two layers.
bool isMarkOnShape(const QString &name)
{
    static const QRegularExpression ends(QStringLiteral(
        "\\.(app|circle|diamond|octagon|rectangle|seal|shield|square|triangle)\\.fill$"));
    return ends.match(name).hasMatch();
}

struct Drawing {
    QPainterPath outline;
    bool hasLayers = false;
    SymbolLook look;
    QSize pixels;
};

QImage drawnAt(const Drawing &drawing, const QPointF &offset)
{
    QImage image(drawing.pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF({}, drawing.pixels).center() + offset);
    const SymbolLook &look = drawing.look;
    const qreal em = look.pointSize * look.pixelRatio * emPerPoint;
    painter.scale(em, em);
    if (drawing.hasLayers)
        drawTwoColors(painter, drawing.outline, look, addedWidth(look.weight));
    else
        drawOneColor(painter, drawing.outline, look.color, addedWidth(look.weight));
    return image;
}

// From 0 to 1: how much of what is drawn covers its pixels wholly.
qreal sharpness(const QImage &image)
{
    qint64 sum = 0;
    qint64 squares = 0;
    for (int y = 0; y < image.height(); ++y) {
        const std::span line(reinterpret_cast<const QRgb *>(image.constScanLine(y)),
                             static_cast<std::size_t>(image.width()));
        for (const QRgb pixel : line) {
            sum += qAlpha(pixel);
            squares += qint64{qAlpha(pixel)} * qAlpha(pixel);
        }
    }
    return sum == 0 ? 0 : static_cast<qreal>(squares) / static_cast<qreal>(sum) / 255;
}

// Thin lines between two pixels are grey and broad: where half a pixel makes a difference to see,
// the symbol is moved by that much.
QPointF sharpestOffset(Drawing drawing)
{
    constexpr qreal worthwhile = 1.03;
    drawing.look.color = Qt::black;
    drawing.hasLayers = false;
    QPointF best;
    qreal most = worthwhile * sharpness(drawnAt(drawing, best));
    for (const QPointF &offset : {QPointF(0.5, 0), QPointF(0, 0.5), QPointF(0.5, 0.5)}) {
        if (const qreal found = sharpness(drawnAt(drawing, offset)); found > most) {
            best = offset;
            most = found;
        }
    }
    return best;
}

// Found once for each symbol and size: it takes more than the drawing.
QPointF knownOffset(const QString &name, const Drawing &drawing)
{
    static QCache<QString, QPointF> known(500);
    const SymbolLook &look = drawing.look;
    const QString key = QStringLiteral("%1 %2 %3 %4 %5 %6")
                            .arg(name)
                            .arg(look.pointSize)
                            .arg(look.weight)
                            .arg(look.pixelRatio)
                            .arg(drawing.pixels.width())
                            .arg(drawing.pixels.height());
    if (!known.contains(key))
        known.insert(key, new QPointF(sharpestOffset(drawing)));
    return *known[key];
}

} // namespace

QImage symbolImage(const QString &name, const SymbolLook &look, const QSize &pixels)
{
    const Drawing drawing{.outline = symbolOutline(name),
                          .hasLayers = look.secondaryColor.isValid() && isMarkOnShape(name),
                          .look = look,
                          .pixels = pixels};
    if (drawing.outline.isEmpty() || pixels.isEmpty())
        return {};
    constexpr qreal thinLines = 32; // symbols up to this height have lines of a pixel or two
    const bool isSmall = look.pointSize * look.pixelRatio <= thinLines;
    QImage image = drawnAt(drawing, isSmall ? knownOffset(name, drawing) : QPointF());
    image.setDevicePixelRatio(look.pixelRatio);
    return image;
}
