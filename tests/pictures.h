#pragma once

#include <QBuffer>
#include <QColor>
#include <QImage>

/// The bytes of a file with that image.
[[nodiscard]] inline QByteArray encoded(const QImage &image, const char *format = "PNG")
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

[[nodiscard]] inline QImage filledImage(const QColor &color, const QSize &size = {256, 256})
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

[[nodiscard]] inline QByteArray pngOf(const QColor &color, const QSize &size = {256, 256})
{
    return encoded(filledImage(color, size));
}
