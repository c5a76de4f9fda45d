#pragma once

#include <QImage>
#include <QLinearGradient>
#include <QPainter>

// What the drawers of icons share. All on images alone: they work on any thread.

/// The coordinates of the drawings, whatever the picture's size: a square of 128 units.
inline constexpr double iconUnits = 128;

/// An empty picture with `draw(painter)` done in it, in those units, without a pen.
template <typename Draw> [[nodiscard]] QImage drawnIcon(int side, const Draw &draw)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(side / iconUnits, side / iconUnits);
    painter.setPen(Qt::NoPen);
    draw(painter);
    return image;
}

/// From `top` at one height to `bottom` at another.
[[nodiscard]] inline QLinearGradient downwards(double from, double to, const QColor &top,
                                               const QColor &bottom)
{
    QLinearGradient gradient(0, from, 0, to);
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}
