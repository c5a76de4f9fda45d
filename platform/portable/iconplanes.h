#pragma once

#include <QByteArrayView>
#include <QImage>

// Pictures of icon files that are no files of their own: planes of bytes, one after the other, with
// runs of equal bytes packed.

/// "ARGB" and the planes of opacity, red, green and blue. Null when there is too little.
[[nodiscard]] QImage imageFromPlanes(QByteArrayView packed, int side);
/// The planes of red, green and blue, and that of opacity, which is not packed; without one the
/// picture is opaque. Null when there is too little.
[[nodiscard]] QImage imageFromPlanes(QByteArrayView packed, QByteArrayView opacity, int side);
