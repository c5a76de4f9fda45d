#pragma once

#include "tests/librarygenerator.h"

/// 100 folders of 20 items, each folder with a picture of 40 KB and each item with a bookmark.
inline DockFolderLibrary mediumLibrary()
{
    return LibraryGenerator(1).regularLibrary({.folders = 100,
                                               .itemsPerFolder = 20,
                                               .pictures = 100,
                                               .pictureSize = 40'000,
                                               .bookmarkSize = 800});
}

/// 1,000 folders of 50 items, every fifth folder with a picture of 100 KB.
inline DockFolderLibrary largeLibrary()
{
    return LibraryGenerator(2).regularLibrary(
        {.folders = 1'000, .itemsPerFolder = 50, .pictures = 200, .pictureSize = 100'000});
}

/// The same JSON as some writers spell it: every slash escaped.
inline QByteArray withEscapedSlashes(QByteArray json)
{
    return json.replace("/", "\\/");
}
