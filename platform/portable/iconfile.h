#pragma once

#include "platform/fileurl.h"

#include <QImage>

/// The picture in an icon file that suits an icon `side` pixels wide: the smallest that is large
/// enough, else the largest; as it is, not scaled. Of a picture file of another kind, that picture.
/// Only what is needed is read. Null when nothing can be.
[[nodiscard]] QImage iconFilePicture(const FileURL &file, int side);
