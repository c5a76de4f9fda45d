#pragma once

#include "model/base64bytes.h"
#include "platform/fileurl.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

/// One entry of a Dock folder: an application, a folder or a file.
struct DockFolderItem {
    enum class Kind { application, folder, file };

    QUuid id{};
    QString name{};
    FileURL url{};
    std::optional<QByteArray> bookmarkData{}; ///< a security-scoped bookmark of `url`
    Kind kind{Kind::file};
    /// Field by field. A bookmark that both share is not looked into.
    bool operator==(const DockFolderItem &other) const;
};

Q_DECLARE_TYPEINFO(DockFolderItem, Q_RELOCATABLE_TYPE);

/// One Dock folder of the library: a plain value, equal when every field is equal.
struct DockFolder {
    QUuid id{}; ///< also names its Dock app
    QString name{};
    QList<DockFolderItem> items{}; ///< in grid order
    std::optional<QString> accentColorHex{}; ///< "#RRGGBB"; absent: no colour was chosen
    std::optional<QString> iconSymbol{}; ///< name of a system symbol
    std::optional<Base64Bytes> customIconData{}; ///< contents of an image file
    std::optional<qint64> gridColumns{}; ///< absent: the default applies
    /// Field by field. Data that both share is not looked into, so that comparing a library with a
    /// changed copy of it costs next to nothing.
    bool operator==(const DockFolder &other) const;
};

Q_DECLARE_TYPEINFO(DockFolder, Q_RELOCATABLE_TYPE);

/// The root of the library file.
struct DockFolderLibrary {
    QList<DockFolder> folders{}; ///< in the user's order
    QUuid selectedFolderID{};
    bool operator==(const DockFolderLibrary &) const = default;
};

/// The folder that Nestlet manages itself. It is shown read-only and never gets a Dock app from
/// here.
[[nodiscard]] const QUuid &appStoreFolderID();

/// Supplies a `selectedFolderID` when there are no folders at all; the same for the whole process.
[[nodiscard]] const DockFolder &fallbackFolder();
