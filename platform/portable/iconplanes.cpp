#include "platform/portable/iconplanes.h"

#include <algorithm>

namespace {

// `size` bytes, or nothing. A front byte below 128 announces that many bytes and one more as they
// are; any other, a run of that many less 125.
QByteArray unpacked(QByteArrayView packed, qsizetype size)
{
    QByteArray bytes;
    bytes.reserve(size);
    while (bytes.size() < size && packed.size() >= 2) {
        const int front = static_cast<uchar>(packed.front());
        if (front < 128) {
            bytes.append(packed.sliced(1).first(std::min<qsizetype>(front + 1, packed.size() - 1)));
            packed = packed.sliced(std::min<qsizetype>(front + 2, packed.size()));
        } else {
            bytes.append(front - 125, packed.at(1));
            packed = packed.sliced(2);
        }
    }
    return bytes.size() < size ? QByteArray() : bytes;
}

// Planes of red, green and blue; opacity apart.
QImage composed(QByteArrayView colors, QByteArrayView opacity, int side)
{
    const qsizetype plane = qsizetype(side) * side;
    const auto valueAt = [](QByteArrayView bytes, qsizetype place) {
        return static_cast<int>(static_cast<uchar>(bytes.at(place)));
    };
    QImage image(side, side, QImage::Format_ARGB32);
    for (qsizetype place = 0; place < plane; ++place) {
        const int alpha = opacity.isEmpty() ? 255 : valueAt(opacity, place);
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(static_cast<int>(place / side)));
        line[place % side] = qRgba(valueAt(colors, place), valueAt(colors, place + plane),
                                   valueAt(colors, place + 2 * plane), alpha);
    }
    return image;
}

} // namespace

QImage imageFromPlanes(QByteArrayView packed, int side)
{
    constexpr QByteArrayView signature = "ARGB";
    const qsizetype plane = qsizetype(side) * side;
    if (!packed.startsWith(signature))
        return {};
    const QByteArray planes = unpacked(packed.sliced(signature.size()), 4 * plane);
    if (planes.isEmpty())
        return {};
    const QByteArrayView view(planes);
    return composed(view.sliced(plane), view.first(plane), side);
}

QImage imageFromPlanes(QByteArrayView packed, QByteArrayView opacity, int side)
{
    const qsizetype plane = qsizetype(side) * side;
    constexpr QByteArrayView padding("\0\0\0\0", 4); // before the largest ones
    if (packed.startsWith(padding))
        packed = packed.sliced(padding.size());
    const QByteArray planes = unpacked(packed, 3 * plane);
    if (planes.isEmpty() || (!opacity.isEmpty() && opacity.size() < plane))
        return {};
    return composed(planes, opacity, side);
}
