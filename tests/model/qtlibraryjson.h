#pragma once

#include "model/dockfolder.h"

/// The library's JSON by way of Qt's documents: slow, but of another make. Tests ask it what a text
/// means, benchmarks how long that takes. Keys come out sorted, and UTF-8 alone is read.
[[nodiscard]] std::optional<DockFolderLibrary> decodeLibraryByQt(const QByteArray &bytes);
[[nodiscard]] QByteArray encodeLibraryByQt(const DockFolderLibrary &library);
