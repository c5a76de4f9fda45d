#include "model/keptfolders.h"

#include "model/jsonencoding.h"
#include "model/jsonwriter.h"
#include "model/libraryjson.h"

// Finds kept folders by id. They are mostly asked for in their order, which needs no index.
class KeptFolders::Finder {
public:
    explicit Finder(const KeptFolders &kept)
        : m_kept(kept)
    {
    }

    /// The place behind the one found last; -1 at the end.
    [[nodiscard]] qsizetype next() const { return m_next < m_kept.m_folders.size() ? m_next : -1; }
    void step() { ++m_next; }

    /// Where the folder with that id is, or -1.
    qsizetype find(const QUuid &id)
    {
        const QList<DockFolder> &folders = m_kept.m_folders;
        if (m_next < folders.size() && folders.at(m_next).id == id)
            return m_next++;
        if (m_places.isEmpty()) {
            for (qsizetype place = 0; place < folders.size(); ++place)
                m_places.insert(folders.at(place).id, place);
        }
        const qsizetype place = m_places.value(id, -1);
        if (place >= 0)
            m_next = place + 1;
        return place;
    }

private:
    const KeptFolders &m_kept;
    qsizetype m_next{};
    QHash<QUuid, qsizetype> m_places;
};

// Puts together what is to be kept of the file being decoded.
class KeptFolders::Receiver final : public FolderReceiver {
public:
    explicit Receiver(const KeptFolders &kept)
        : m_kept(kept)
        , m_finder(kept)
    {
        m_folders.reserve(kept.m_folders.size());
        m_bytes.reserve(kept.m_bytes.size());
    }

    qsizetype receiveKnown(QByteArrayView rest) override
    {
        const qsizetype place = m_finder.next();
        if (place < 0 || !rest.startsWith(m_kept.m_bytes.at(size_t(place)).json))
            return 0;
        m_finder.step();
        m_folders.append(m_kept.m_folders.at(place));
        m_bytes.push_back(m_kept.m_bytes.at(size_t(place)));
        ++m_knownCount;
        m_takesOver = true;
        return m_bytes.back().json.size();
    }

    void receive(DockFolder folder, QByteArrayView bytes) override
    {
        m_bytes.push_back({QByteArray::fromRawData(bytes.data(), bytes.size()), false});
        m_decoded.push_back(m_bytes.size() - 1);
        // An equal folder that is only written differently goes on sharing the kept one's data.
        const qsizetype place = m_finder.find(folder.id);
        if (place >= 0 && m_kept.m_folders.at(place) == folder) {
            m_folders.append(m_kept.m_folders.at(place));
            m_takesOver = true;
            return;
        }
        if (folder.customIconData)
            m_pictured.append(m_folders.size());
        m_folders.append(std::move(folder));
    }

    // What is decoded points into the file. The bytes go with the next file or encoding: the whole
    // file is kept for them unless some were known. Pictures stay as long as their folders: they
    // keep the file only when it holds all of them, or each would come to keep a file of its own.
    void moveInto(KeptFolders &kept, const QByteArray &file)
    {
        const bool isUnchanged = m_decoded.empty() && m_knownCount == kept.m_folders.size();
        if (isUnchanged)
            return;
        if (m_knownCount == 0)
            kept.m_file = file;
        else
            detachBytes();
        if (m_takesOver)
            detachPictures();
        kept.m_folders = std::move(m_folders);
        kept.m_bytes = std::move(m_bytes);
    }

private:
    void detachBytes()
    {
        for (const size_t place : m_decoded)
            m_bytes[place].json.detach();
    }

    void detachPictures()
    {
        for (const qsizetype place : m_pictured) {
            if (auto &picture = m_folders[place].customIconData)
                picture->detach();
        }
    }

    const KeptFolders &m_kept;
    Finder m_finder;
    QList<DockFolder> m_folders;
    std::vector<Bytes> m_bytes;
    std::vector<size_t> m_decoded; ///< places whose bytes are in the file
    QList<qsizetype> m_pictured; ///< places whose pictures are
    qsizetype m_knownCount{}; ///< whose bytes are kept already
    bool m_takesOver{}; ///< one that is kept already, by its bytes or as an equal folder
};

std::optional<QList<DockFolder>> KeptFolders::decode(const QByteArray &file)
{
    const std::optional<QByteArray> utf8 = utf8OfJSONText(file);
    Receiver receiver(*this);
    if (!utf8 || !decodeFolders(*utf8, receiver))
        return std::nullopt;
    receiver.moveInto(*this, *utf8);
    return m_folders;
}

std::vector<QByteArrayView> KeptFolders::encode(const DockFolderLibrary &library)
{
    std::vector<Bytes> bytes;
    bytes.reserve(size_t(library.folders.size()));
    Finder finder(*this);
    JSONWriter writer;
    for (const DockFolder &folder : library.folders) {
        const qsizetype place = finder.find(folder.id);
        const Bytes *const kept = place < 0 ? nullptr : &m_bytes.at(size_t(place));
        if (kept != nullptr && kept->isOwnEncoding && m_folders.at(place) == folder) {
            bytes.push_back(*kept);
            continue;
        }
        writer.clear();
        encodeFolder(folder, writer);
        bytes.push_back({writer.json().toByteArray(), true}); // a copy, for it has no slack
    }
    m_folders = library.folders;
    m_bytes = std::move(bytes);
    m_file.clear(); // all bytes are our own now
    m_tail = libraryTail(library.selectedFolderID);
    return pieces();
}

std::vector<QByteArrayView> KeptFolders::pieces() const
{
    std::vector<QByteArrayView> pieces{libraryHead};
    pieces.reserve(2 * m_bytes.size() + 2);
    for (const Bytes &bytes : m_bytes) {
        if (pieces.size() > 1)
            pieces.push_back(folderSeparator);
        pieces.emplace_back(bytes.json);
    }
    pieces.emplace_back(m_tail);
    return pieces;
}
