#pragma once

#include "model/dockfolder.h"

class Bookmarks;
class FileSystem;

/// An item for a file URL, with a fresh id. Never fails: what cannot be found out is left out.
[[nodiscard]] DockFolderItem itemFromURL(const FileURL &url, const FileSystem &files,
                                         const Bookmarks &bookmarks);
