#include "platform/portable/drawnicons.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int grid = 128; // the coordinates that the drawings below use

// Draws in a square of 128 units, whatever the picture's size.
template <typename Draw> QImage drawn(int side, const Draw &draw)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / double(grid), side / double(grid));
    painter.setPen(Qt::NoPen);
    draw(painter);
    return image;
}

QLinearGradient downwards(double from, double to, const QColor &top, const QColor &bottom)
{
    QLinearGradient gradient(0, from, 0, to);
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

QPainterPath folderBack()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(8, 22, 52, 40), 8, 8);
    path.addRoundedRect(QRectF(8, 32, 112, 74), 8, 8);
    return path.simplified();
}

QPainterPath sheet()
{
    QPainterPath path;
    path.moveTo(30, 8);
    path.lineTo(76, 8);
    path.lineTo(106, 38);
    path.lineTo(106, 114);
    path.quadTo(106, 120, 100, 120);
    path.lineTo(28, 120);
    path.quadTo(22, 120, 22, 114);
    path.lineTo(22, 14);
    path.quadTo(22, 8, 30, 8);
    return path;
}

QPainterPath foldedCorner()
{
    QPainterPath path;
    path.moveTo(76, 8);
    path.lineTo(76, 32);
    path.quadTo(76, 38, 82, 38);
    path.lineTo(106, 38);
    path.closeSubpath();
    return path;
}

void drawExtension(QPainter &painter, const QString &extension)
{
    constexpr qsizetype longest = 6;
    if (extension.isEmpty() || extension.size() > longest)
        return;
    QFont font;
    font.setPixelSize(extension.size() > 4 ? 16 : 20);
    font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    painter.setPen(QColor(0x8e, 0x8e, 0x93));
    painter.drawText(QRectF(22, 84, 84, 28), Qt::AlignCenter, extension.toUpper());
}

} // namespace

QImage drawnFolderIcon(int side)
{
    return drawn(side, [](QPainter &painter) {
        painter.setBrush(downwards(22, 106, QColor(0x4f, 0xae, 0xe8), QColor(0x3b, 0x94, 0xd6)));
        painter.drawPath(folderBack());
        painter.setBrush(downwards(42, 108, QColor(0x86, 0xd0, 0xf8), QColor(0x5b, 0xb5, 0xf0)));
        painter.drawRoundedRect(QRectF(8, 42, 112, 66), 8, 8);
        painter.setBrush(QColor(255, 255, 255, 70));
        painter.drawRoundedRect(QRectF(9, 42, 110, 2), 1, 1);
    });
}

QImage drawnDocumentIcon(const QString &extension, int side)
{
    return drawn(side, [&](QPainter &painter) {
        painter.setBrush(downwards(8, 120, Qt::white, QColor(0xf2, 0xf2, 0xf4)));
        painter.setPen(QPen(QColor(0, 0, 0, 46), 1.5));
        painter.drawPath(sheet());
        painter.setBrush(downwards(8, 38, QColor(0xe3, 0xe3, 0xe6), QColor(0xfa, 0xfa, 0xfb)));
        painter.drawPath(foldedCorner());
        drawExtension(painter, extension);
    });
}

QImage drawnApplicationIcon(int side)
{
    return drawn(side, [](QPainter &painter) {
        painter.setBrush(downwards(12, 116, QColor(0xfb, 0xfb, 0xfc), QColor(0xd9, 0xdb, 0xe0)));
        painter.setPen(QPen(QColor(0, 0, 0, 40), 1));
        painter.drawRoundedRect(QRectF(12, 12, 104, 104), 24, 24);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(0x9a, 0x9d, 0xa5), 3));
        painter.drawEllipse(QPointF(64, 64), 30, 30);
        painter.drawEllipse(QPointF(64, 64), 14, 14);
    });
}
