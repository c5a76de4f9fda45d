#include "sandbox/drawing/glyphs.h"

#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

QPainterPath circle(qreal x, qreal y, qreal radius)
{
    QPainterPath path;
    path.addEllipse(QPointF(x, y), radius, radius);
    return path;
}

QPainterPath box(qreal x, qreal y, qreal width, qreal height, qreal radius)
{
    QPainterPath path;
    path.addRoundedRect(QRectF(x, y, width, height), radius, radius);
    return path;
}

QPainterPath polygon(const QList<QPointF> &points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(points));
    path.closeSubpath();
    return path;
}

QPainterPath stroked(const QPainterPath &path, qreal width)
{
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(path).simplified();
}

QPainterPath line(const QList<QPointF> &points, qreal width)
{
    QPainterPath path(points.first());
    for (const QPointF &point : points.sliced(1))
        path.lineTo(point);
    return stroked(path, width);
}

QPointF onCircle(qreal turn, qreal radius)
{
    const qreal angle = 2 * std::numbers::pi * turn;
    return {0.5 + radius * std::sin(angle), 0.5 - radius * std::cos(angle)};
}

QPainterPath star()
{
    QList<QPointF> points;
    for (int i = 0; i < 10; ++i)
        points.append(onCircle(i / 10.0, i % 2 == 0 ? 0.48 : 0.2) + QPointF(0, 0.03));
    return polygon(points);
}

QPainterPath briefcase()
{
    const QPainterPath handle = stroked(box(0.36, 0.16, 0.28, 0.2, 0.05), 0.07);
    return (box(0.06, 0.27, 0.88, 0.58, 0.1) + handle) - box(0.06, 0.53, 0.88, 0.05, 0)
        + box(0.43, 0.5, 0.14, 0.12, 0.03);
}

QPainterPath house()
{
    return (polygon({{0.5, 0.08}, {0.97, 0.5}, {0.03, 0.5}}) + box(0.16, 0.42, 0.68, 0.47, 0.05))
        - box(0.41, 0.58, 0.18, 0.31, 0.03);
}

QPainterPath heart()
{
    QPainterPath path(QPointF(0.5, 0.9));
    path.cubicTo(-0.2, 0.45, 0.08, -0.02, 0.5, 0.26);
    path.cubicTo(0.92, -0.02, 1.2, 0.45, 0.5, 0.9);
    return path;
}

QPainterPath book()
{
    QPainterPath page(QPointF(0.48, 0.24));
    page.cubicTo(0.36, 0.12, 0.18, 0.12, 0.05, 0.17);
    page.lineTo(0.05, 0.8);
    page.cubicTo(0.18, 0.75, 0.36, 0.76, 0.48, 0.87);
    page.closeSubpath();
    return page + QTransform(-1, 0, 0, 1, 1, 0).map(page);
}

QPainterPath gameController()
{
    const QPainterPath body
        = box(0.12, 0.28, 0.76, 0.34, 0.17) + circle(0.2, 0.6, 0.16) + circle(0.8, 0.6, 0.16);
    return body - box(0.2, 0.42, 0.2, 0.06, 0.02) - box(0.27, 0.35, 0.06, 0.2, 0.02)
        - circle(0.66, 0.5, 0.045) - circle(0.76, 0.4, 0.045);
}

QPainterPath musicNote()
{
    const QPainterPath stems = line({{0.39, 0.74}, {0.39, 0.2}, {0.79, 0.12}, {0.79, 0.66}}, 0.075);
    return stems + polygon({{0.39, 0.18}, {0.79, 0.1}, {0.79, 0.26}, {0.39, 0.34}})
        + circle(0.29, 0.76, 0.13) + circle(0.69, 0.68, 0.13);
}

QPainterPath photo()
{
    return box(0.05, 0.17, 0.9, 0.66, 0.1) - circle(0.28, 0.38, 0.08)
        - polygon(
               {{0.12, 0.76}, {0.37, 0.52}, {0.5, 0.64}, {0.68, 0.42}, {0.88, 0.64}, {0.88, 0.76}});
}

QPainterPath document()
{
    const QPainterPath sheet
        = box(0.2, 0.06, 0.6, 0.88, 0.08) - polygon({{0.58, 0}, {1, 0}, {1, 0.28}, {0.8, 0.28}});
    return sheet - box(0.32, 0.45, 0.36, 0.06, 0.03) - box(0.32, 0.59, 0.36, 0.06, 0.03)
        - box(0.32, 0.73, 0.22, 0.06, 0.03);
}

QPainterPath terminal()
{
    return box(0.05, 0.15, 0.9, 0.7, 0.12) - line({{0.22, 0.34}, {0.38, 0.48}, {0.22, 0.62}}, 0.07)
        - line({{0.48, 0.65}, {0.7, 0.65}}, 0.07);
}

QPainterPath cart()
{
    return line({{0.06, 0.17}, {0.2, 0.17}, {0.32, 0.68}, {0.82, 0.68}}, 0.075)
        + polygon({{0.24, 0.26}, {0.94, 0.26}, {0.84, 0.58}, {0.31, 0.58}})
        + circle(0.38, 0.84, 0.075) + circle(0.76, 0.84, 0.075);
}

QPainterPath airplane()
{
    const QPainterPath body = box(0.44, 0.03, 0.12, 0.92, 0.06);
    const QPainterPath wings = polygon(
        {{0.5, 0.34}, {0.97, 0.62}, {0.97, 0.71}, {0.5, 0.58}, {0.03, 0.71}, {0.03, 0.62}});
    const QPainterPath tail
        = polygon({{0.5, 0.74}, {0.72, 0.9}, {0.72, 0.96}, {0.5, 0.91}, {0.28, 0.96}, {0.28, 0.9}});
    QTransform turned;
    turned.translate(0.5, 0.5).rotate(45).translate(-0.5, -0.5);
    return turned.map(body + wings + tail);
}

QPainterPath person()
{
    QPainterPath shoulders;
    shoulders.addEllipse(QPointF(0.5, 0.95), 0.4, 0.37);
    return circle(0.5, 0.28, 0.2) + shoulders.intersected(box(0, 0, 1, 0.93, 0));
}

QPainterPath globe()
{
    QPainterPath meridian;
    meridian.addEllipse(QPointF(0.5, 0.5), 0.2, 0.42);
    QPainterPath lines = stroked(circle(0.5, 0.5, 0.42), 0.065) + stroked(meridian, 0.055);
    for (const qreal y : {0.32, 0.5, 0.68}) {
        const qreal reach = std::sqrt(0.42 * 0.42 - (y - 0.5) * (y - 0.5));
        lines += line({{0.5 - reach, y}, {0.5 + reach, y}}, 0.055);
    }
    return lines;
}

QPainterPath gear()
{
    QPainterPath wheel = circle(0.5, 0.5, 0.34);
    for (int tooth = 0; tooth < 8; ++tooth) {
        QTransform turned;
        turned.translate(0.5, 0.5).rotate(45 * tooth);
        wheel += turned.map(box(-0.075, -0.46, 0.15, 0.2, 0.03));
    }
    return wheel - circle(0.5, 0.5, 0.14);
}

QPainterPath cloud()
{
    return circle(0.28, 0.58, 0.2) + circle(0.5, 0.44, 0.24) + circle(0.74, 0.58, 0.19)
        + box(0.24, 0.56, 0.52, 0.22, 0.1);
}

QPainterPath folder()
{
    return (box(0.05, 0.17, 0.4, 0.3, 0.08) + box(0.05, 0.26, 0.9, 0.57, 0.09))
        - box(0.05, 0.36, 0.9, 0.035, 0);
}

QPainterPath clock()
{
    return circle(0.5, 0.5, 0.44) - line({{0.5, 0.24}, {0.5, 0.52}, {0.68, 0.62}}, 0.075);
}

QPainterPath drop()
{
    QPainterPath path(QPointF(0.5, 0.04));
    path.cubicTo(0.66, 0.32, 0.82, 0.44, 0.82, 0.63);
    path.cubicTo(0.82, 1.05, 0.18, 1.05, 0.18, 0.63);
    path.cubicTo(0.18, 0.44, 0.34, 0.32, 0.5, 0.04);
    return path;
}

QPainterPath bolt()
{
    return polygon({{0.58, 0.03}, {0.2, 0.56}, {0.46, 0.56}, {0.4, 0.97}, {0.8, 0.4}, {0.53, 0.4}});
}

QPainterPath moon()
{
    return circle(0.48, 0.52, 0.42) - circle(0.64, 0.36, 0.34);
}

QPainterPath leaf()
{
    QPainterPath path(QPointF(0.12, 0.88));
    path.cubicTo(0.0, 0.25, 0.4, 0.08, 0.92, 0.08);
    path.cubicTo(0.95, 0.6, 0.72, 0.95, 0.12, 0.88);
    return path - line({{0.2, 0.8}, {0.66, 0.34}}, 0.05);
}

QPainterPath wave()
{
    QPainterPath waves;
    for (const qreal y : {0.28, 0.52, 0.76}) {
        QPainterPath one(QPointF(0.06, y));
        one.cubicTo(0.22, y - 0.2, 0.34, y - 0.2, 0.5, y);
        one.cubicTo(0.66, y + 0.2, 0.78, y + 0.2, 0.94, y);
        waves += stroked(one, 0.09);
    }
    return waves;
}

QPainterPath bars()
{
    return box(0.1, 0.54, 0.16, 0.36, 0.05) + box(0.32, 0.34, 0.16, 0.56, 0.05)
        + box(0.54, 0.44, 0.16, 0.46, 0.05) + box(0.76, 0.12, 0.16, 0.78, 0.05);
}

QPainterPath pencil()
{
    const QPainterPath upright
        = (box(0.39, 0.02, 0.22, 0.72, 0.05) - box(0.39, 0.16, 0.22, 0.04, 0))
        + polygon({{0.39, 0.73}, {0.61, 0.73}, {0.5, 0.98}});
    QTransform turned;
    turned.translate(0.5, 0.5).rotate(45).translate(-0.5, -0.5);
    return turned.map(upright);
}

QPainterPath check()
{
    return circle(0.5, 0.5, 0.45) - line({{0.28, 0.52}, {0.44, 0.67}, {0.72, 0.34}}, 0.09);
}

QPainterPath squareGrid()
{
    return box(0.08, 0.08, 0.38, 0.38, 0.1) + box(0.54, 0.08, 0.38, 0.38, 0.1)
        + box(0.08, 0.54, 0.38, 0.38, 0.1) + box(0.54, 0.54, 0.38, 0.38, 0.1);
}

struct Named {
    QStringView symbol;
    QPainterPath (*shape)();
};

constexpr std::array glyphs{
    Named{u"star.fill", star},
    Named{u"briefcase.fill", briefcase},
    Named{u"house.fill", house},
    Named{u"heart.fill", heart},
    Named{u"book.fill", book},
    Named{u"gamecontroller.fill", gameController},
    Named{u"music.note", musicNote},
    Named{u"photo.fill", photo},
    Named{u"doc.fill", document},
    Named{u"terminal.fill", terminal},
    Named{u"cart.fill", cart},
    Named{u"airplane", airplane},
    Named{u"person.fill", person},
    Named{u"globe", globe},
    Named{u"gear", gear},
    Named{u"cloud.fill", cloud},
    Named{u"folder.fill", folder},
    Named{u"clock.fill", clock},
    Named{u"drop.fill", drop},
    Named{u"bolt.fill", bolt},
    Named{u"moon.fill", moon},
    Named{u"leaf.fill", leaf},
    Named{u"water.waves", wave},
    Named{u"chart.bar.fill", bars},
    Named{u"pencil", pencil},
    Named{u"checkmark.circle.fill", check},
    Named{u"square.grid.2x2", squareGrid},
};

} // namespace

QPainterPath glyph(QStringView symbol)
{
    const auto *found = std::ranges::find(glyphs, symbol, &Named::symbol);
    return found == glyphs.end() ? QPainterPath() : found->shape();
}

QPainterPath glyph(QStringView symbol, const QRectF &into)
{
    return QTransform(into.width(), 0, 0, into.height(), into.x(), into.y()).map(glyph(symbol));
}
