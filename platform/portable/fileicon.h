#pragma once

#include "platform/fileurl.h"

#include <QImage>

/// The icon of whatever is at that URL, square, `side` pixels wide: the one that it brings along,
/// else one drawn for what it is; of a picture, a small print. A plain document when nothing is
/// there. Reads the disk; any thread.
[[nodiscard]] QImage fileIcon(const FileURL &url, int side);
