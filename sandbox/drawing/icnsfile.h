#pragma once

#include <QByteArray>
#include <QImage>

#include <functional>

/// The bytes of an icon file (.icns) with pictures in the usual sizes, each drawn by `draw`, which
/// is given the side in pixels.
[[nodiscard]] QByteArray makeIcnsFile(const std::function<QImage(int side)> &draw);
