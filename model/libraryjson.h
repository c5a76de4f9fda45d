#pragma once

#include "model/dockfolder.h"

#include <QByteArrayView>

class JSONWriter;

/// The library that the bytes of a library file hold. Nothing when they are not JSON, or when any
/// required key is missing or any value is of the wrong type: there is no half-read library. Keys
/// may come in any order, unknown ones are skipped, and of a key that comes twice the first counts.
/// The pictures share the bytes.
[[nodiscard]] std::optional<DockFolderLibrary> decodeLibrary(const QByteArray &bytes);

/// The bytes for a library file: compact, keys in the order of the records' fields.
[[nodiscard]] QByteArray encodeLibrary(const DockFolderLibrary &library);
/// Appends the same bytes.
void encodeLibrary(const DockFolderLibrary &library, JSONWriter &writer);

/// Takes the folders of a library, one after the other, while it is decoded.
class FolderReceiver {
public:
    virtual ~FolderReceiver() = default;
    /// Looks at what follows in the library from the first byte of a folder on. A receiver that
    /// knows the folder which stands there takes it and returns its length; it is then not decoded.
    virtual qsizetype receiveKnown(QByteArrayView rest) = 0;
    /// A folder that was decoded, and the bytes it was decoded from.
    virtual void receive(DockFolder folder, QByteArrayView bytes) = 0;
};

/// Decodes a library, given in UTF-8, folder by folder; returns its `selectedFolderID`. Nothing
/// when it is invalid: the folders received until then do not count. Their pictures share `utf8`.
[[nodiscard]] std::optional<QUuid> decodeFolders(const QByteArray &utf8, FolderReceiver &receiver);

/// What an encoded library has before, between and behind its folders.
inline constexpr QByteArrayView libraryHead = R"({"folders":[)";
inline constexpr QByteArrayView folderSeparator = ",";
[[nodiscard]] QByteArray libraryTail(const QUuid &selectedFolderID);

/// Appends one encoded folder.
void encodeFolder(const DockFolder &folder, JSONWriter &writer);
