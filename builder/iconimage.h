#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

/// The picture, stretched to a square of `side` pixels, as PNG with alpha; nothing for a null image
/// or an empty square. Equal pictures give equal bytes, and nothing but the pixels is kept.
[[nodiscard]] std::optional<QByteArray> encodeIconImage(const QImage &image, int side);

/// Lets this program read larger pictures than the toolkit does by itself. To be called while no
/// thread reads any: the limit is the process's.
void allowLargePictures();

/// The picture of an image file as a folder keeps it; nothing when the file holds none. The
/// contents decide, not the name; of several pictures the first counts.
[[nodiscard]] std::optional<QByteArray> iconImageFromFile(const QString &path);
