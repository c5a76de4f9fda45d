#pragma once

#include "model/dockfolder.h"

#include <QImage>

/// The icon of a Dock folder: on its colour the chosen picture, else the chosen symbol, else a grid
/// of its items' icons.
[[nodiscard]] QImage drawFolderTile(const DockFolder &folder, int side);
