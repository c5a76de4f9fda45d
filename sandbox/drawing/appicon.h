#pragma once

#include <QColor>
#include <QImage>
#include <QString>

/// A rounded square with a gradient and a white symbol: the look of the sample applications.
struct AppIconLook {
    QColor top{};
    QColor bottom{};
    QString symbol{};
};

[[nodiscard]] QImage drawAppIcon(const AppIconLook &look, int side);

/// The square that application icons of this look fill, in a picture of that width, and its shape.
[[nodiscard]] QRectF iconSquare(int side);
[[nodiscard]] QPainterPath iconShape(int side);
/// An empty picture with the shadow under the shape and the gradient on it.
[[nodiscard]] QImage drawIconGround(const QColor &top, const QColor &bottom, int side);
