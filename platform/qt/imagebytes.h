#pragma once

#include <QImage>

/// The picture that the bytes of a file hold, upright; null when they hold none. Of the usual kinds
/// it is known who reads them: a reader that is to find out loads the libraries of all kinds, which
/// takes longer than the picture.
[[nodiscard]] QImage imageFromBytes(const QByteArray &bytes);
