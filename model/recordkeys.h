#pragma once

#include <QByteArrayView>

#include <array>

// The keys of the records in JSON, each list in the order of the record's fields, and which of them
// must be there.

enum class LibraryKey { folders, selectedFolderID };
inline constexpr std::array<QByteArrayView, 2> libraryKeys{"folders", "selectedFolderID"};
inline constexpr unsigned requiredLibraryKeys = 0b11;

enum class FolderKey {
    id,
    name,
    items,
    accentColorHex,
    iconSymbol,
    customIconData,
    gridColumns,
};
inline constexpr std::array<QByteArrayView, 7> folderKeys{
    "id", "name", "items", "accentColorHex", "iconSymbol", "customIconData", "gridColumns"};
inline constexpr unsigned requiredFolderKeys = 0b111;

enum class ItemKey { id, name, url, bookmarkData, kind };
inline constexpr std::array<QByteArrayView, 5> itemKeys{"id", "name", "url", "bookmarkData",
                                                        "kind"};
inline constexpr unsigned requiredItemKeys = 0b10111;

/// The texts of DockFolderItem::Kind, in its order.
inline constexpr std::array<QByteArrayView, 3> kindTexts{"application", "folder", "file"};
