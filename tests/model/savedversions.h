#pragma once

#include "tests/librarygenerator.h"

/// The version-th library that the saver writes: of several pages, and different all over, so that
/// a mixture of two versions is neither.
inline DockFolderLibrary savedVersion(int version)
{
    LibraryGenerator random{quint32(version)};
    return random.regularLibrary({.folders = 1 + version % 5,
                                  .itemsPerFolder = 4,
                                  .pictures = 1,
                                  .pictureSize = 1000 * (1 + version % 40)});
}

/// How many versions there are. The saver begins again after the last.
inline constexpr int savedVersions = 100;
