#pragma once

#include "model/dockfolder.h"

class FileSystem;

/// "Contents/Info.plist" of a bundle.
[[nodiscard]] FileURL infoPlistURL(const FileURL &bundle);

/// "qx.Nestlet.folder." and the folder's UUID in lower case without hyphens.
[[nodiscard]] QString proxyBundleIdentifier(const QUuid &folderID);

/// "CFBundleIdentifier" of a bundle; nothing when it has none, or cannot be read.
[[nodiscard]] std::optional<QString> bundleIdentifier(const FileURL &bundle,
                                                      const FileSystem &files);

/// The folder whose Dock app an Info.plist makes its bundle; nothing when it makes it none, or is
/// no property list.
[[nodiscard]] std::optional<QUuid> folderIDIn(const QByteArray &infoPlist);
/// The folder whose Dock app the bundle is; nothing when it is none, or cannot be read.
[[nodiscard]] std::optional<QUuid> readFolderID(const FileURL &bundle, const FileSystem &files);

/// Names the build of a template app: its version and its executable's modification time. Nothing
/// when it has no readable Info.plist.
[[nodiscard]] std::optional<QString> sourceStamp(const FileURL &templateApp,
                                                 const FileSystem &files);

/// Makes the Info.plist of a fresh copy of `templateApp` that of `folder`'s Dock app; keys that say
/// nothing of the folder stay. Throws CompanionError when the property list in the file is no
/// dictionary, and PlatformError, which says why, when the file cannot be read, holds no property
/// list or cannot be written.
void rewriteInfoPlist(const FileURL &proxy, const FileURL &templateApp, const DockFolder &folder,
                      const FileSystem &files);
