#pragma once

#include "model/dockfolder.h"

#include <QStringList>

/// Whether a picture was chosen for a folder's icon, which may turn out to be none.
[[nodiscard]] bool hasPicture(const DockFolder &folder);

/// The colour that a folder's icon is drawn in, "#RRGGBB"; empty when none was chosen or it can't
/// be read.
[[nodiscard]] QString previewColor(const DockFolder &folder);

/// How many columns of item icons a folder's icon shows: as many as were chosen, else as many as
/// its items fill.
[[nodiscard]] int previewColumns(const DockFolder &folder);

/// The texts of the URLs of the items that a folder's icon shows.
[[nodiscard]] QStringList previewURLs(const DockFolder &folder);
