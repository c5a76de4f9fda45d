#pragma once

#include "platform/fileurl.h"

#include <QImage>

/// Whether it is worth a look for an icon: a file indeed, no pipe that one could wait at for ever,
/// and not so large that it would take long.
[[nodiscard]] bool isQuicklyRead(const FileURL &file);

/// The picture in an icon file that suits an icon `side` pixels wide: the smallest that is large
/// enough, else the largest; as it is, not scaled. Of a picture file of another kind, that picture.
/// Only what is needed is read. Null when nothing can be, or not quickly.
[[nodiscard]] QImage iconFilePicture(const FileURL &file, int side);
