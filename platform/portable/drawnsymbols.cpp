#include "platform/portable/drawnsymbols.h"

#include <QPainterPathStroker>
#include <QTransform>

namespace {

// Paths are cut and joined at this many units a symbol's height: in smaller numbers their curves
// would lose their roundness.
constexpr qreal precision = 1000;

// As thick as the font's lines.
constexpr qreal lineWidth = 0.072;

QPainterPath scaled(const QPainterPath &path, qreal factor)
{
    return path * QTransform::fromScale(factor, factor);
}

QPainterPath stroked(const QPainterPath &line, qreal width = lineWidth)
{
    QPainterPathStroker stroker;
    stroker.setWidth(width * precision);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(scaled(line, precision));
}

QPainterPath polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path(*points.begin());
    for (const QPointF &point : points)
        path.lineTo(point);
    return path;
}

QPainterPath roundedRectangle(qreal width, qreal height, qreal radius)
{
    QPainterPath path;
    path.addRoundedRect(QRectF(-width / 2, -height / 2, width, height), radius, radius);
    return path;
}

QPainterPath disc(const QPointF &middle, qreal radius)
{
    QPainterPath path;
    path.addEllipse(middle, radius, radius);
    return scaled(path, precision);
}

// A window with a prompt.
QPainterPath terminal()
{
    const QPainterPath prompt = stroked(polyline({{-0.3, -0.17}, {-0.14, -0.03}, {-0.3, 0.11}}));
    const QPainterPath cursor = stroked(polyline({{-0.06, 0.12}, {0.14, 0.12}}));
    return scaled(roundedRectangle(0.98, 0.77, 0.13), precision)
        .subtracted(prompt.simplified())
        .subtracted(cursor.simplified());
}

// A face that is two: its left half looks ahead, its right half to the left.
QPainterPath finder()
{
    QPainterPath profile(QPointF(0.06, -0.385));
    profile.cubicTo(-0.06, -0.21, -0.085, -0.08, -0.085, 0.05);
    profile.lineTo(0.055, 0.05);
    profile.cubicTo(0.055, 0.17, 0.07, 0.29, 0.105, 0.385);
    QPainterPath smile(QPointF(-0.23, 0.15));
    smile.cubicTo(-0.1, 0.265, 0.1, 0.265, 0.23, 0.15);
    QPainterPath face;
    face.setFillRule(Qt::WindingFill); // overlapping lines need no joining
    face.addPath(stroked(roundedRectangle(0.79, 0.77, 0.14)));
    face.addPath(stroked(profile, 0.06));
    face.addPath(stroked(smile, 0.06));
    face.addPath(stroked(polyline({{-0.215, -0.12}, {-0.215, -0.06}}), 0.065));
    face.addPath(stroked(polyline({{0.195, -0.12}, {0.195, -0.06}}), 0.065));
    return face;
}

// A plus on a disc over a picture's lower right corner.
QPainterPath pictureWithPlus(const QPainterPath &picture)
{
    const QPointF middle(0.34, 0.25);
    constexpr qreal radius = 0.215;
    constexpr qreal arm = 0.11;
    const QPainterPath plus
        = stroked(polyline({middle - QPointF(arm, 0), middle + QPointF(arm, 0)}))
              .united(stroked(polyline({middle - QPointF(0, arm), middle + QPointF(0, arm)})));
    const QPainterPath badge = disc(middle, radius).subtracted(plus);
    return picture.subtracted(disc(middle, radius + 0.055)).united(badge);
}

QPainterPath withLetterA(QPainterPath circle)
{
    circle.setFillRule(Qt::WindingFill);
    circle.addPath(stroked(polyline({{-0.16, 0.19}, {0, -0.21}, {0.16, 0.19}}), 0.07)
                       .united(stroked(polyline({{-0.105, 0.06}, {0.105, 0.06}}), 0.06)));
    return circle;
}

QPainterPath drawnLarge(const QString &name, const SymbolOutlines &font)
{
    const auto large
        = [&](const char *other) { return scaled(font(QLatin1StringView(other)), precision); };
    if (name == u"terminal.fill")
        return terminal();
    if (name == u"finder")
        return finder();
    if (name == u"photo.badge.plus")
        return pictureWithPlus(large("photo"));
    if (name == u"a.circle")
        return withLetterA(large("circle"));
    return {};
}

} // namespace

QPainterPath drawnSymbol(const QString &name, const SymbolOutlines &font)
{
    const QPainterPath large = drawnLarge(name, font);
    return scaled(large.translated(-large.boundingRect().center()), 1 / precision);
}
