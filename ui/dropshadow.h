#pragma once

#include <QImage>

/// The shadow that a picture throws, in pixels of the picture.
struct DropShadow {
    int radius{}; ///< how far it is blurred
    int offset{}; ///< how far down it lies
    double opacity{};

    /// How much a picture with its shadow is larger than without, on each side.
    [[nodiscard]] int margin() const { return radius + offset; }
};

/// The picture over its black shadow, in the middle of a larger picture.
[[nodiscard]] QImage withDropShadow(const QImage &picture, const DropShadow &shadow);
