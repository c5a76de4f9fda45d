#pragma once

#include "model/dockfolder.h"

#include <QByteArrayView>
#include <QHash>

#include <vector>

/// Pairs of a folder and JSON bytes that it decodes from, as they were last read or written, so
/// that neither is made anew while the other did not change. What is kept is a memory only: it is
/// right whatever the file holds now.
class KeptFolders {
public:
    /// The folders of a library file. One whose bytes are kept is not decoded, and when all are, in
    /// their order, the list is the kept one itself. Nothing when the bytes are no library.
    [[nodiscard]] std::optional<QList<DockFolder>> decode(const QByteArray &file);

    /// The bytes of a library file, in pieces that are valid until the next call. Bytes that are
    /// kept from our own encoding are used again.
    [[nodiscard]] std::vector<QByteArrayView> encode(const DockFolderLibrary &library);

private:
    class Receiver;
    class Finder;

    [[nodiscard]] std::vector<QByteArrayView> pieces() const;

    /// The bytes of the folder at the same place.
    struct Bytes {
        QByteArray json{};
        bool isOwnEncoding{}; ///< others may be spaced out or hold unknown keys: good for reading
                              ///< only
    };

    QList<DockFolder> m_folders;
    std::vector<Bytes> m_bytes;
    QByteArray m_file; ///< owns the bytes of folders from a file that was decoded whole
    QByteArray m_tail; ///< of the library last encoded
};
