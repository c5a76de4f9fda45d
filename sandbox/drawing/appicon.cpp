#include "sandbox/drawing/appicon.h"

#include "sandbox/drawing/glyphs.h"

#include <QPainter>
#include <QPainterPath>

namespace {

void drawShadow(QPainter &painter, int side)
{
    painter.setPen(Qt::NoPen);
    for (int step = 4; step >= 1; --step) {
        const qreal grow = side * 0.006 * step;
        const QRectF rect
            = iconSquare(side).translated(0, side * 0.012).adjusted(-grow, -grow, grow, grow);
        painter.setBrush(QColor(0, 0, 0, 16));
        painter.drawRoundedRect(rect, side * 0.19, side * 0.19);
    }
}

} // namespace

QRectF iconSquare(int side)
{
    const qreal margin = side * 0.08;
    return {margin, margin * 0.9, side - 2 * margin, side - 2 * margin};
}

QPainterPath iconShape(int side)
{
    QPainterPath shape;
    const qreal radius = iconSquare(side).width() * 0.225;
    shape.addRoundedRect(iconSquare(side), radius, radius);
    return shape;
}

QImage drawIconGround(const QColor &top, const QColor &bottom, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawShadow(painter, side);
    QLinearGradient gradient(iconSquare(side).topLeft(), iconSquare(side).bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    painter.fillPath(iconShape(side), gradient);
    painter.strokePath(iconShape(side), QPen(QColor(255, 255, 255, 46), side * 0.008));
    return image;
}

QImage drawAppIcon(const AppIconLook &look, int side)
{
    QImage image = drawIconGround(look.top, look.bottom, side);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal inset = side * 0.17;
    const QRectF place = iconSquare(side).adjusted(inset, inset, -inset, -inset);
    QPainterPath shape = glyph(look.symbol, place);
    painter.fillPath(shape.translated(0, side * 0.012), QColor(0, 0, 0, 40));
    QLinearGradient gradient(place.topLeft(), place.bottomLeft());
    gradient.setColorAt(0, Qt::white);
    gradient.setColorAt(1, QColor(255, 255, 255, 216));
    painter.fillPath(shape, gradient);
    return image;
}
