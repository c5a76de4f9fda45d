#include "sandbox/dock/foldertile.h"

#include "sandbox/drawing/appicon.h"
#include "sandbox/drawing/fileicon.h"
#include "sandbox/drawing/glyphs.h"

#include "model/accentcolor.h"
#include "model/folderpreview.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace {

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

// An empty cell is as large as the icon of an application is within its own.
void drawEmptyCell(QPainter &painter, const QRectF &cell)
{
    const qreal inset = cell.width() / 10;
    const QRectF square = cell.adjusted(inset, inset, -inset, -inset);
    QPainterPath shape;
    shape.addRoundedRect(square, square.width() * 0.22, square.width() * 0.22);
    painter.fillPath(shape, QColor(255, 255, 255, 38));
}

void drawGrid(QPainter &painter, const DockFolder &folder, int side)
{
    const int columns = previewColumns(folder);
    const QRectF place = innerSquare(side, 0.8);
    const QSizeF cell = place.size() / columns;
    const int iconSide = static_cast<int>(std::lround(cell.width()));
    for (int i = 0; i < columns * columns; ++i) {
        const int row = i / columns;
        const QPointF corner(i % columns * cell.width(), row * cell.height());
        const QRectF target(place.topLeft() + corner, cell);
        if (i < folder.items.size())
            painter.drawImage(target, fileIcon(folder.items.at(i).url.path(), iconSide));
        else
            drawEmptyCell(painter, target);
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
        drawGrid(painter, folder, side);
    return image;
}
