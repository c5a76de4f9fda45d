#include "model/libraryjson.h"

#include "model/base64.h"
#include "model/jsonencoding.h"
#include "model/jsonreader.h"
#include "model/recordkeys.h"
#include "model/uuidtext.h"

#include <array>
#include <iterator>

namespace {

// Reads the records. Whatever is wrong ends as InvalidJSON.
class LibraryDecoder {
public:
    LibraryDecoder(const QByteArray &utf8, FolderReceiver &receiver)
        : m_utf8(utf8)
        , m_reader(utf8)
        , m_receiver(receiver)
    {
    }

    QUuid readLibrary();

private:
    void readFolders();
    DockFolder readFolder();
    QList<DockFolderItem> readItems();
    DockFolderItem readItem();

    // An object whose member number i, as `keys` counts them, is read by `readMember(i)`. Those
    // whose bits are in `required` must be there.
    template <size_t count, typename ReadMember>
    void readRecord(const std::array<QByteArrayView, count> &keys, unsigned required,
                    ReadMember readMember);
    template <typename Read> auto readOptional(Read read) -> std::optional<decltype(read())>;

    QUuid readUUID();
    QByteArray readBytes();
    Base64Bytes readPicture();
    FileURL readURL();
    DockFolderItem::Kind readKind();

    const QByteArray &m_utf8;
    JSONReader m_reader;
    FolderReceiver &m_receiver;
    QList<DockFolderItem> m_items; ///< of the folder being read, then room for the next one's
};

template <typename Value> Value required(std::optional<Value> value)
{
    if (!value)
        throw InvalidJSON();
    return *std::move(value);
}

// Of a JSON string in front that is Base64 without escapes, with its quotes; 0: there is none. Most
// of a large library is gone through only once that way.
qsizetype plainBase64StringLength(QByteArrayView text)
{
    if (!text.startsWith('"'))
        return 0;
    const qsizetype end = 1 + base64FrontLength(text.sliced(1));
    return text.sliced(end).startsWith('"') ? end + 1 : 0;
}

template <size_t count, typename ReadMember>
void LibraryDecoder::readRecord(const std::array<QByteArrayView, count> &keys, unsigned required,
                                ReadMember readMember)
{
    unsigned seen = 0;
    m_reader.readObject([&](QByteArrayView key) {
        const auto index = size_t(std::ranges::find(keys, key) - keys.begin());
        const unsigned bit = 1u << index;
        if (index == count || (seen & bit) != 0) {
            m_reader.skipValue();
            return;
        }
        seen |= bit;
        readMember(index);
    });
    if ((seen & required) != required)
        throw InvalidJSON();
}

template <typename Read>
auto LibraryDecoder::readOptional(Read read) -> std::optional<decltype(read())>
{
    if (m_reader.readNull())
        return std::nullopt;
    return read();
}

QUuid LibraryDecoder::readLibrary()
{
    QUuid selectedFolderID;
    readRecord(libraryKeys, requiredLibraryKeys, [&](size_t key) {
        switch (LibraryKey(key)) {
        case LibraryKey::folders:
            return readFolders();
        case LibraryKey::selectedFolderID:
            selectedFolderID = readUUID();
        }
    });
    m_reader.readEnd();
    return selectedFolderID;
}

void LibraryDecoder::readFolders()
{
    m_reader.readArray([this] {
        const QByteArrayView rest = m_reader.rest();
        if (const qsizetype known = m_receiver.receiveKnown(rest); known > 0) {
            m_reader.skipBytes(known);
            return;
        }
        DockFolder folder = readFolder();
        m_receiver.receive(std::move(folder), rest.chopped(m_reader.rest().size()));
    });
}

DockFolder LibraryDecoder::readFolder()
{
    DockFolder folder;
    const auto readText = [this] { return m_reader.readString(); };
    readRecord(folderKeys, requiredFolderKeys, [&](size_t key) {
        switch (FolderKey(key)) {
        case FolderKey::id:
            folder.id = readUUID();
            break;
        case FolderKey::name:
            folder.name = m_reader.readString();
            break;
        case FolderKey::items:
            folder.items = readItems();
            break;
        case FolderKey::accentColorHex:
            folder.accentColorHex = readOptional(readText);
            break;
        case FolderKey::iconSymbol:
            folder.iconSymbol = readOptional(readText);
            break;
        case FolderKey::customIconData:
            folder.customIconData = readOptional([this] { return readPicture(); });
            break;
        case FolderKey::gridColumns:
            folder.gridColumns = readOptional([this] { return m_reader.readInteger(); });
        }
    });
    return folder;
}

// Copied together, so that each list is as large as it has to be: there are many.
QList<DockFolderItem> LibraryDecoder::readItems()
{
    m_items.clear();
    m_reader.readArray([this] { m_items.append(readItem()); });
    return {std::move_iterator(m_items.begin()), std::move_iterator(m_items.end())};
}

DockFolderItem LibraryDecoder::readItem()
{
    DockFolderItem item;
    readRecord(itemKeys, requiredItemKeys, [&](size_t key) {
        switch (ItemKey(key)) {
        case ItemKey::id:
            item.id = readUUID();
            break;
        case ItemKey::name:
            item.name = m_reader.readString();
            break;
        case ItemKey::url:
            item.url = readURL();
            break;
        case ItemKey::bookmarkData:
            item.bookmarkData = readOptional([this] { return readBytes(); });
            break;
        case ItemKey::kind:
            item.kind = readKind();
        }
    });
    return item;
}

QUuid LibraryDecoder::readUUID()
{
    return required(uuidFromText(m_reader.readUTF8()));
}

QByteArray LibraryDecoder::readBytes()
{
    return required(bytesFromBase64(m_reader.readUTF8()));
}

Base64Bytes LibraryDecoder::readPicture()
{
    const QByteArrayView rest = m_reader.rest(); // after blanks, which readNull has skipped
    if (const qsizetype length = plainBase64StringLength(rest); length > 0)
        m_reader.skipBytes(length);
    else if (!isBase64(m_reader.readUTF8()))
        throw InvalidJSON();
    return Base64Bytes::inFile(m_utf8, rest.chopped(m_reader.rest().size()));
}

FileURL LibraryDecoder::readURL()
{
    const QByteArrayView text = m_reader.readUTF8();
    if (!isURLText(text))
        throw InvalidJSON();
    return FileURL::fromValidText(QString::fromLatin1(text));
}

DockFolderItem::Kind LibraryDecoder::readKind()
{
    const auto text = std::ranges::find(kindTexts, m_reader.readUTF8());
    if (text == kindTexts.end())
        throw InvalidJSON();
    return DockFolderItem::Kind(text - kindTexts.begin());
}

// Keeps what it is given.
struct FolderCollector final : FolderReceiver {
    QList<DockFolder> folders;
    qsizetype receiveKnown(QByteArrayView) override { return 0; }
    void receive(DockFolder folder, QByteArrayView) override { folders.append(std::move(folder)); }
};

} // namespace

std::optional<QUuid> decodeFolders(const QByteArray &utf8, FolderReceiver &receiver)
{
    try {
        return LibraryDecoder(utf8, receiver).readLibrary();
    } catch (const InvalidJSON &) {
        return std::nullopt;
    }
}

std::optional<DockFolderLibrary> decodeLibrary(const QByteArray &bytes)
{
    const std::optional<QByteArray> utf8 = utf8OfJSONText(bytes);
    FolderCollector collector;
    const auto selectedFolderID = utf8 ? decodeFolders(*utf8, collector) : std::nullopt;
    if (!selectedFolderID)
        return std::nullopt;
    return DockFolderLibrary{std::move(collector.folders), *selectedFolderID};
}
