#pragma once

#include "model/dockfolder.h"

/// The library that the bytes of a library file hold. Nothing when they are not JSON, or when any
/// required key is missing or any value is of the wrong type: there is no half-read library.
[[nodiscard]] std::optional<DockFolderLibrary> decodeLibrary(const QByteArray &bytes);

/// The bytes for a library file: compact, keys in the order of the records' fields.
[[nodiscard]] QByteArray encodeLibrary(const DockFolderLibrary &library);
