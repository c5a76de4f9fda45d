#pragma once

#include "model/dockfolder.h"

/// The folder's name as a file name may hold it: forbidden, control and invisible characters become
/// spaces. It names the folder's Dock app, and is cut where the system would refuse a longer name.
[[nodiscard]] QString proxyFileName(const DockFolder &folder);

/// The same with the beginning of the folder's id, for when another folder has that name.
[[nodiscard]] QString distinctProxyFileName(const DockFolder &folder);
