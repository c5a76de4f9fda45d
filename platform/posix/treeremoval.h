#pragma once

#include <QByteArray>

/// Removes a file, link or whole tree. Follows no link; opens up directories of the user's own that
/// are closed to him. Throws PlatformError.
void removeTree(const QByteArray &path);
