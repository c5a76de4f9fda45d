#include "ui/icongrid.h"

#include <QColor>
#include <QPainter>

#include <algorithm>

namespace {

constexpr float emptyCellOpacity = 0.15F;
constexpr int iconInset = 16; // most icons keep a sixteenth of their side free around them
constexpr double cornerShare = 0.22; // of a square's side

void drawSquare(QPainter &painter, const QRectF &square, const QColor &color)
{
    const double radius = square.width() * cornerShare;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(square, radius, radius);
}

QImage transparentImage(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

int IconGrid::cellSide() const
{
    if (rows <= 0 || columns <= 0)
        return 0;
    const int width = (size.width() - (columns - 1) * spacing) / columns;
    const int height = (size.height() - (rows - 1) * spacing) / rows;
    return std::max(0, std::min(width, height));
}

QList<QRect> IconGrid::cells() const
{
    const int side = cellSide();
    const int step = side + spacing;
    const QPoint corner((size.width() - columns * step + spacing) / 2,
                        (size.height() - rows * step + spacing) / 2);
    QList<QRect> cells;
    for (int row = 0; side > 0 && row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            cells.append(QRect(corner + QPoint(column, row) * step, QSize(side, side)));
    }
    return cells;
}

QString IconGrid::key() const
{
    return QStringLiteral("grid %1x%2+%3 %4x%5 ")
               .arg(rows)
               .arg(columns)
               .arg(spacing)
               .arg(size.width())
               .arg(size.height())
        + urls.mid(0, qsizetype(rows) * columns).join(u' '); // no URL holds a blank
}

QImage drawnIconGrid(const IconGrid &grid, const QList<QImage> &icons)
{
    QImage image = transparentImage(grid.size);
    if (image.isNull())
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QColor faint = QColor::fromRgbF(1, 1, 1, emptyCellOpacity);
    const int inset = grid.cellSide() / iconInset;
    const QMargins margins(inset, inset, inset, inset);
    const QList<QRect> cells = grid.cells();
    for (qsizetype index = 0; index < cells.size(); ++index) {
        const QImage icon = icons.value(index);
        if (icon.isNull())
            drawSquare(painter, cells.at(index).marginsRemoved(margins), faint);
        else
            painter.drawImage(cells.at(index), icon);
    }
    return image;
}

QImage drawnIconPlaceholder(int side, const QColor &color)
{
    QImage image = transparentImage({side, side});
    if (image.isNull())
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const double inset = double(side) / iconInset;
    drawSquare(painter, QRectF(image.rect()).adjusted(inset, inset, -inset, -inset), color);
    return image;
}
