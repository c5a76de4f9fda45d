#pragma once

#include <QImage>
#include <QString>

/// The icon of an application, folder or document, as the Finder would show it; square.
[[nodiscard]] QImage fileIcon(const QString &path, int side);

/// The smallest picture of an icon file that is at least `side` wide, scaled to it; null when the
/// file holds none that can be read.
[[nodiscard]] QImage readIconFile(const QString &path, int side);
