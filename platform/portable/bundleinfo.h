#pragma once

#include "platform/fileurl.h"

#include <QVariantMap>

// What a bundle's Info.plist says.

/// Throws PlatformError when it cannot be read or holds no dictionary.
[[nodiscard]] QVariantMap readBundleInfo(const FileURL &bundle);
/// The same, but empty for a bundle without one that can be read.
[[nodiscard]] QVariantMap bundleInfoIfReadable(const FileURL &bundle);

/// Whether the bundle's "CFBundleIdentifier" is that one.
[[nodiscard]] bool hasBundleIdentifier(const FileURL &bundle, const QString &identifier);
/// The bundle's icon file; nothing when it names none or the file is missing.
[[nodiscard]] std::optional<FileURL> bundleIconFile(const FileURL &bundle);
