#include "platform/portable/drawnicons.h"

#include "platform/portable/documentdrawing.h"
#include "platform/portable/drawing.h"

#include <QFont>
#include <QPainterPath>

namespace {

constexpr int leastLabelledSide = 40; // in fewer pixels a label cannot be read

// The tab, a slope down from it, and the edge behind the front.
QPainterPath folderBack()
{
    QPainterPath path;
    path.moveTo(8, 96);
    path.lineTo(8, 30);
    path.quadTo(8, 21, 17, 21);
    path.lineTo(42, 21);
    path.cubicTo(51, 21, 51, 30, 60, 30);
    path.lineTo(111, 30);
    path.quadTo(120, 30, 120, 39);
    path.lineTo(120, 96);
    path.closeSubpath();
    return path;
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
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(extension.size() > 4 ? 14 : 16);
    font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    painter.setPen(QColor(0x8e, 0x8e, 0x93));
    painter.drawText(QRectF(22, 95, 84, 22), Qt::AlignCenter, extension.toUpper());
}

// Soft edges below and around, as far as the pixels allow.
void drawSheetShadow(QPainter &painter)
{
    for (const auto &[offset, opacity] : {std::pair(2.5, 10), std::pair(1.5, 14)}) {
        painter.setBrush(QColor(0, 0, 0, opacity));
        painter.setPen(QPen(QColor(0, 0, 0, opacity), 2));
        painter.drawPath(sheet().translated(0, offset));
    }
}

} // namespace

QImage drawnFolderIcon(int side)
{
    const QRectF front(8, 39, 112, 68);
    return drawnIcon(side, [&](QPainter &painter) {
        painter.setBrush(QColor(0, 0, 0, 30));
        painter.drawRoundedRect(front.adjusted(0, 40, 0, 2.5), 9, 9);
        painter.setBrush(downwards(21, 60, QColor(0x4c, 0xab, 0xe4), QColor(0x3a, 0x97, 0xd6)));
        painter.drawPath(folderBack());
        painter.setBrush(downwards(39, 107, QColor(0x8b, 0xd6, 0xfb), QColor(0x56, 0xb3, 0xee)));
        painter.drawRoundedRect(front, 9, 9);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(downwards(39, 50, QColor(255, 255, 255, 150), Qt::transparent), 1.5));
        painter.drawRoundedRect(front.adjusted(0.75, 0.75, -0.75, -0.75), 8.5, 8.5);
    });
}

QImage drawnDocumentIcon(DocumentKind kind, const QString &extension, int side)
{
    return drawnIcon(side, [&](QPainter &painter) {
        drawSheetShadow(painter);
        painter.setBrush(downwards(8, 120, Qt::white, QColor(0xf4, 0xf4, 0xf6)));
        painter.setPen(QPen(QColor(0, 0, 0, 56), 1.25));
        painter.drawPath(sheet());
        drawDocumentKind(painter, kind, side);
        painter.setBrush(downwards(8, 38, QColor(0xd9, 0xd9, 0xde), QColor(0xfa, 0xfa, 0xfb)));
        painter.setPen(QPen(QColor(0, 0, 0, 40), 1));
        painter.drawPath(foldedCorner());
        if (side >= leastLabelledSide && kind != DocumentKind::PDF) // which names itself
            drawExtension(painter, extension);
    });
}

QImage drawnApplicationIcon(int side)
{
    return drawnIcon(side, [](QPainter &painter) {
        painter.setBrush(downwards(12, 116, QColor(0xfb, 0xfb, 0xfc), QColor(0xd9, 0xdb, 0xe0)));
        painter.setPen(QPen(QColor(0, 0, 0, 40), 1));
        painter.drawRoundedRect(QRectF(12, 12, 104, 104), 24, 24);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(0x9a, 0x9d, 0xa5), 3));
        painter.drawEllipse(QPointF(64, 64), 30, 30);
        painter.drawEllipse(QPointF(64, 64), 14, 14);
    });
}

QImage drawnThumbnail(const QImage &picture, int side)
{
    constexpr double room = 116; // of the icon's units, for the longer side
    return drawnIcon(side, [&](QPainter &painter) {
        const QSizeF size = QSizeF(picture.size()).scaled({room, room}, Qt::KeepAspectRatio);
        const QRectF frame(QPointF((iconUnits - size.width()) / 2, (iconUnits - size.height()) / 2),
                           size);
        painter.setBrush(QColor(0, 0, 0, 26));
        painter.drawRoundedRect(frame.adjusted(-1, 0, 1, 2.5), 3, 3);
        painter.fillRect(frame, Qt::white);
        painter.drawImage(frame, picture);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(0, 0, 0, 60), 1));
        painter.drawRect(frame);
    });
}
