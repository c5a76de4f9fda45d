#include "sandbox/dock/foldertile.h"

#include "sandbox/drawing/appicon.h"
#include "sandbox/drawing/fileicon.h"
#include "sandbox/drawing/glyphs.h"

#include "model/accentcolor.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr qsizetype mostItems = 9;
const QColor defaultAccent(0x4f83d3);

QRectF innerSquare(int side, qreal part)
{
    const QRectF square = iconSquare(side);
    const qreal inset = square.width() * (1 - part) / 2;
    return square.adjusted(inset, inset, -inset, -inset);
}

void drawPicture(QPainter &painter, const QImage &picture, int side)
{
    painter.setClipPath(iconShape(side));
    const QSizeF size
        = QSizeF(picture.size()).scaled(iconSquare(side).size(), Qt::KeepAspectRatioByExpanding);
    QRectF place(QPointF(0, 0), size);
    place.moveCenter(iconSquare(side).center());
    painter.drawImage(place, picture);
}

// A symbol without a drawing of its own is told by its first letter.
void drawSymbol(QPainter &painter, const QString &symbol, int side)
{
    const QRectF place = innerSquare(side, 0.56);
    const QPainterPath shape = glyph(symbol, place);
    if (!shape.isEmpty()) {
        painter.fillPath(shape, Qt::white);
        return;
    }
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(static_cast<int>(place.height() * 0.9));
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(iconSquare(side), Qt::AlignCenter, symbol.left(1).toUpper());
}

void drawGrid(QPainter &painter, const QList<DockFolderItem> &items, int side)
{
    const qsizetype count = std::min(items.size(), mostItems);
    const int columns = count <= 4 ? 2 : 3;
    const QRectF place = innerSquare(side, 0.8);
    const qreal cell = place.width() / columns;
    for (qsizetype i = 0; i < count; ++i) {
        const qsizetype row = i / columns;
        const QPointF corner(static_cast<qreal>(i % columns) * cell,
                             static_cast<qreal>(row) * cell);
        const QRectF target(place.topLeft() + corner, QSizeF(cell, cell));
        const int iconSide = static_cast<int>(std::lround(cell));
        painter.drawImage(target, fileIcon(items.at(i).url.path(), iconSide));
    }
}

} // namespace

QImage drawFolderTile(const DockFolder &folder, int side)
{
    const QColor accent
        = colorFromHexText(folder.accentColorHex.value_or(QString())).value_or(defaultAccent);
    QImage image = drawIconGround(accent.lighter(128), accent.darker(118), side);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QImage picture = QImage::fromData(folder.customIconData.value_or(Base64Bytes()).bytes());
    if (!picture.isNull())
        drawPicture(painter, picture, side);
    else if (folder.iconSymbol)
        drawSymbol(painter, *folder.iconSymbol, side);
    else if (folder.items.isEmpty())
        drawSymbol(painter, QStringLiteral("folder.fill"), side);
    else
        drawGrid(painter, folder.items, side);
    return image;
}
