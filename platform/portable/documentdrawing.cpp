#include "platform/portable/documentdrawing.h"

#include "platform/portable/drawing.h"

#include <QPainterPath>
#include <QPolygonF>

#include <array>

// The free part of the sheet: between 30 and 98 across, 44 and 92 down; the middle is (64, 68).

namespace {

constexpr int leastDetailedSide = 32;

void setStroke(QPainter &painter, const QColor &color, double width)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void fill(QPainter &painter, const QBrush &brush)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
}

void drawLines(QPainter &painter, int side)
{
    const bool isDetailed = side >= leastDetailedSide;
    const double step = isDetailed ? 10 : 18;
    setStroke(painter, QColor(0xa8, 0xab, 0xb2), isDetailed ? 3.5 : 8);
    painter.drawLine(QPointF(38, 34), QPointF(66, 34));
    const int lines = isDetailed ? 5 : 3;
    for (int line = 1; line <= lines; ++line) {
        const double y = 34 + line * step;
        painter.drawLine(QPointF(38, y), QPointF(line == lines ? 68 : 90, y));
    }
}

void drawCode(QPainter &painter, int side)
{
    setStroke(painter, QColor(0x3a, 0x7b, 0xe0), side >= leastDetailedSide ? 6 : 9);
    painter.drawPolyline(QPolygonF({{48, 54}, {34, 68}, {48, 82}}));
    painter.drawPolyline(QPolygonF({{80, 54}, {94, 68}, {80, 82}}));
    painter.drawLine(QPointF(69, 50), QPointF(59, 86));
}

void drawGlobe(QPainter &painter, int side)
{
    const QPointF middle(64, 68);
    fill(painter, downwards(42, 94, QColor(0x5a, 0xb4, 0xf7), QColor(0x1f, 0x77, 0xe0)));
    painter.drawEllipse(middle, 26, 26);
    setStroke(painter, QColor(255, 255, 255, 215), side >= leastDetailedSide ? 2.6 : 5);
    painter.drawEllipse(middle, 11, 25);
    painter.drawLine(QPointF(39, 68), QPointF(89, 68));
    if (side < leastDetailedSide)
        return;
    painter.drawLine(QPointF(43, 56), QPointF(85, 56));
    painter.drawLine(QPointF(43, 80), QPointF(85, 80));
}

void drawLandscape(QPainter &painter, int)
{
    const QRectF frame(34, 46, 60, 44);
    QPainterPath clip;
    clip.addRoundedRect(frame, 4, 4);
    painter.save();
    painter.setClipPath(clip);
    painter.fillRect(frame, downwards(46, 90, QColor(0x8f, 0xcf, 0xfa), QColor(0xd8, 0xee, 0xfd)));
    fill(painter, QColor(0xff, 0xd5, 0x4a));
    painter.drawEllipse(QPointF(48, 58), 6, 6);
    fill(painter, QColor(0x57, 0xb8, 0x6b));
    painter.drawPolygon(QPolygonF({{30, 92}, {52, 68}, {70, 92}}));
    fill(painter, QColor(0x3c, 0x9c, 0x58));
    painter.drawPolygon(QPolygonF({{50, 92}, {74, 60}, {100, 92}}));
    painter.restore();
}

void drawNote(QPainter &painter, int)
{
    const QBrush pink(downwards(42, 94, QColor(0xff, 0x5c, 0x7c), QColor(0xf2, 0x3b, 0x5d)));
    QPainterPath note;
    note.setFillRule(Qt::WindingFill);
    note.addEllipse(QPointF(51, 86), 9, 7);
    note.addEllipse(QPointF(81, 80), 9, 7);
    note.addRect(QRectF(54.5, 50, 5.5, 36));
    note.addRect(QRectF(84.5, 44, 5.5, 36));
    note.addPolygon(QPolygonF({{54.5, 50}, {90, 42}, {90, 54}, {54.5, 62}}));
    fill(painter, pink);
    painter.drawPath(note.simplified());
}

void drawPlay(QPainter &painter, int)
{
    fill(painter, downwards(46, 90, QColor(0x55, 0x59, 0x63), QColor(0x2c, 0x2f, 0x36)));
    painter.drawRoundedRect(QRectF(34, 46, 60, 44), 7, 7);
    setStroke(painter, Qt::white, 3);
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF({{57, 58}, {57, 78}, {75, 68}}));
}

void drawPDF(QPainter &painter, int side)
{
    drawLines(painter, side);
    fill(painter, downwards(58, 92, QColor(0xf2, 0x4e, 0x46), QColor(0xd9, 0x2d, 0x26)));
    painter.drawRoundedRect(QRectF(22, 62, 60, 28), 4, 4);
    if (side >= leastDetailedSide) {
        // The three letters as strokes: no font is needed, and none is as crisp.
        setStroke(painter, Qt::white, 3.6);
        painter.drawLine(QPointF(32, 84), QPointF(32, 68));
        painter.drawArc(QRectF(27, 68, 13, 9), -90 * 16, 180 * 16);
        painter.drawLine(QPointF(32, 68), QPointF(34, 68));
        painter.drawLine(QPointF(32, 77), QPointF(34, 77));
        painter.drawLine(QPointF(47, 68), QPointF(47, 84));
        painter.drawArc(QRectF(40, 68, 17, 16), -90 * 16, 180 * 16);
        painter.drawLine(QPointF(47, 68), QPointF(49, 68));
        painter.drawLine(QPointF(47, 84), QPointF(49, 84));
        painter.drawPolyline(QPolygonF({{73, 68}, {64, 68}, {64, 84}}));
        painter.drawLine(QPointF(64, 76), QPointF(71, 76));
    }
}

void drawZipper(QPainter &painter, int side)
{
    const bool isDetailed = side >= leastDetailedSide;
    const double step = isDetailed ? 6 : 12;
    fill(painter, QColor(0x9a, 0x9d, 0xa6));
    const int teeth = isDetailed ? 10 : 5;
    for (int tooth = 0; tooth < teeth; ++tooth) {
        painter.drawRect(
            QRectF(tooth % 2 == 0 ? 52 : 59, 10 + tooth * step, 9, step - (isDetailed ? 2 : 4)));
    }
    fill(painter, downwards(66, 94, QColor(0xa6, 0xa9, 0xb2), QColor(0x7d, 0x80, 0x8a)));
    painter.drawRoundedRect(QRectF(52, 66, 16, 26), 5, 5);
    fill(painter, QColor(0xf4, 0xf4, 0xf6));
    painter.drawRoundedRect(QRectF(57, 78, 6, 9), 3, 3);
}

void drawTable(QPainter &painter, int side)
{
    const QRectF frame(34, 46, 60, 44);
    const double line = side >= leastDetailedSide ? 2 : 5;
    fill(painter, QColor(0x34, 0xa8, 0x53));
    painter.drawRoundedRect(frame, 4, 4);
    fill(painter, Qt::white);
    const double width = (frame.width() - 4 * line) / 3;
    const double height = (frame.height() - 11 - 3 * line) / 3;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            painter.drawRect(QRectF(frame.left() + line + column * (width + line),
                                    frame.top() + 11 + row * (height + line), width, height));
    }
}

void drawChart(QPainter &painter, int)
{
    fill(painter, QColor(0xff, 0x9f, 0x2e));
    painter.drawRoundedRect(QRectF(38, 66, 12, 24), 2, 2);
    fill(painter, QColor(0xf2, 0x6b, 0x4a));
    painter.drawRoundedRect(QRectF(58, 46, 12, 44), 2, 2);
    fill(painter, QColor(0x4a, 0x90, 0xe2));
    painter.drawRoundedRect(QRectF(78, 56, 12, 34), 2, 2);
}

void drawLetter(QPainter &painter, int side)
{
    // A capital and a small letter as strokes.
    setStroke(painter, QColor(0x4b, 0x4e, 0x57), side >= leastDetailedSide ? 5 : 8);
    painter.drawPolyline(QPolygonF({{36, 88}, {51, 48}, {66, 88}}));
    painter.drawLine(QPointF(42, 74), QPointF(60, 74));
    painter.drawEllipse(QPointF(82, 79), 9, 9);
    painter.drawLine(QPointF(91.5, 70), QPointF(91.5, 88));
}

void drawDisk(QPainter &painter, int)
{
    fill(painter, downwards(48, 90, QColor(0xe4, 0xe6, 0xea), QColor(0xb4, 0xb8, 0xc0)));
    painter.drawPolygon(QPolygonF({{44, 48}, {84, 48}, {96, 74}, {32, 74}}));
    fill(painter, downwards(74, 92, QColor(0x9a, 0x9f, 0xa9), QColor(0x7b, 0x80, 0x8b)));
    painter.drawRoundedRect(QRectF(32, 73, 64, 18), 4, 4);
    fill(painter, QColor(0x6f, 0xe0, 0x7b));
    painter.drawEllipse(QPointF(86, 82), 3, 3);
}

void drawTerminal(QPainter &painter, int side)
{
    fill(painter, downwards(44, 92, QColor(0x3a, 0x3d, 0x45), QColor(0x1c, 0x1e, 0x23)));
    painter.drawRoundedRect(QRectF(32, 44, 64, 48), 6, 6);
    setStroke(painter, QColor(0x5f, 0xe0, 0x7a), side >= leastDetailedSide ? 4.5 : 8);
    painter.drawPolyline(QPolygonF({{42, 56}, {54, 66}, {42, 76}}));
    painter.drawLine(QPointF(60, 78), QPointF(76, 78));
}

void drawNothing(QPainter &, int) { }

using Drawer = void (*)(QPainter &, int);

// In the order of DocumentKind.
constexpr std::array<Drawer, 14> drawers{
    drawNothing, drawLines,  drawCode,  drawGlobe, drawLandscape, drawNote, drawPlay,
    drawPDF,     drawZipper, drawTable, drawChart, drawLetter,    drawDisk, drawTerminal};
static_assert(drawers.size() == static_cast<size_t>(DocumentKind::Program) + 1);

} // namespace

void drawDocumentKind(QPainter &painter, DocumentKind kind, int side)
{
    painter.save();
    drawers.at(static_cast<size_t>(kind))(painter, side);
    painter.restore();
}
