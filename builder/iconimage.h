#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

/// The picture, stretched to a square of `side` pixels, as PNG; nothing for a null image.
[[nodiscard]] std::optional<QByteArray> encodeIconImage(const QImage &image, int side);

/// The picture of an image file as a folder keeps it; nothing when the file holds none.
[[nodiscard]] std::optional<QByteArray> iconImageFromFile(const QString &path);
