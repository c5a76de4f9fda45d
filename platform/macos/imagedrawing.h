#pragma once

#include <QImage>
#include <QSize>

#include <functional>

/// What `draw` draws with AppKit, which counts pixels from the lower left corner. Any thread.
[[nodiscard]] QImage imageDrawnBy(const QSize &pixels, const std::function<void()> &draw);
