#include "platform/binarypropertylist.h"

#include "platform/propertylistrules.h"

#include <QtEndian>

#include <plist/plist.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>

namespace {

constexpr QByteArrayView magic{"bplist"};
constexpr qsizetype headerSize = 8;
constexpr qsizetype trailerSize = 32;
constexpr qint64 referenceDate = 978'307'200; // the first moment of 2001, since 1970

// Reads the objects by their table. Written out here rather than left to the library, which follows
// shared objects as often as they are named: a file of a few hundred bytes takes all memory.
class BinaryReader {
public:
    BinaryReader(QByteArrayView bytes, const QString &path)
        : m_bytes(bytes)
        , m_path(path)
        , m_budget(1'000'000 + 8 * bytes.size())
    {
    }

    QVariant read()
    {
        require(m_bytes.size() >= headerSize + trailerSize);
        const qsizetype trailer = m_bytes.size() - trailerSize;
        m_offsetSize = number(trailer + 6, 1);
        m_referenceSize = number(trailer + 7, 1);
        m_objectCount = number(trailer + 8, 8);
        const quint64 top = number(trailer + 16, 8);
        m_tableStart = number(trailer + 24, 8);
        require(m_offsetSize >= 1 && m_offsetSize <= 8 && m_referenceSize >= 1
                && m_referenceSize <= 8);
        const auto room = static_cast<quint64>(trailer);
        require(m_tableStart >= headerSize && m_tableStart <= room
                && m_objectCount <= (room - m_tableStart) / m_offsetSize);
        return object(top, 0);
    }

private:
    // The end of what a marker's low half or the integer behind it counts, and where it starts.
    struct Run {
        quint64 start{};
        quint64 count{};
    };

    void require(bool holds) const
    {
        if (!holds)
            throw malformedPropertyList(
                m_path, QCoreApplication::translate("PlatformError", "Damaged property list"));
    }

    // A big-endian number; the caller has checked that it lies inside.
    [[nodiscard]] quint64 number(qsizetype at, quint64 size) const
    {
        quint64 value = 0;
        for (const char byte : m_bytes.sliced(at, static_cast<qsizetype>(size)))
            value = value << 8U | static_cast<unsigned char>(byte);
        return value;
    }

    // The same within the objects.
    [[nodiscard]] quint64 objectNumber(quint64 at, quint64 size) const
    {
        require(at < m_tableStart && size <= m_tableStart - at);
        return number(static_cast<qsizetype>(at), size);
    }

    QVariant object(quint64 index, int depth)
    {
        require(index < m_objectCount && depth <= deepestPropertyList);
        const quint64 offset
            = number(static_cast<qsizetype>(m_tableStart + index * m_offsetSize), m_offsetSize);
        require(offset >= headerSize);
        const auto marker = static_cast<unsigned>(objectNumber(offset, 1));
        spend(1);
        switch (marker >> 4U) {
        case 0x0:
            require(marker == 0x08 || marker == 0x09);
            return marker == 0x09;
        case 0x1:
            return integer(offset + 1, marker & 15U);
        case 0x2:
            return real(offset + 1, marker & 15U);
        case 0x3:
            return date(real(offset + 1, marker & 15U));
        case 0x8:
            require((marker & 15U) < 8);
            return objectReference(objectNumber(offset + 1, (marker & 15U) + 1));
        case 0xa:
            return array(run(offset, marker), depth);
        case 0xd:
            return dictionary(run(offset, marker), depth);
        default:
            return bytesOrText(run(offset, marker), marker >> 4U);
        }
    }

    // Objects may be named more than once, and each time is a copy: what all of them may come to
    // is bounded by the size of the file.
    void spend(quint64 amount)
    {
        require(amount <= static_cast<quint64>(m_budget));
        m_budget -= static_cast<qint64>(amount);
    }

    [[nodiscard]] QVariant integer(quint64 at, unsigned sizeLog) const
    {
        require(sizeLog <= 4);
        if (sizeLog < 4) { // up to four bytes it has no sign
            const quint64 value = objectNumber(at, quint64{1} << sizeLog);
            return static_cast<qint64>(value);
        }
        const quint64 high = objectNumber(at, 8);
        const quint64 low = objectNumber(at + 8, 8);
        const bool isNegative = high == std::numeric_limits<quint64>::max();
        const bool fitsSigned = isNegative == (static_cast<qint64>(low) < 0);
        require(high == 0 || (isNegative && fitsSigned));
        return fitsSigned ? QVariant(static_cast<qint64>(low)) : QVariant(low);
    }

    [[nodiscard]] double real(quint64 at, unsigned sizeLog) const
    {
        require(sizeLog == 2 || sizeLog == 3);
        if (sizeLog == 2)
            return std::bit_cast<float>(static_cast<quint32>(objectNumber(at, 4)));
        return std::bit_cast<double>(objectNumber(at, 8));
    }

    [[nodiscard]] QVariant date(double seconds) const
    {
        constexpr double farthest = 1e12; // some thirty thousand years
        require(std::abs(seconds) < farthest);
        const qint64 milliseconds = referenceDate * 1000 + std::llround(seconds * 1000);
        return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
    }

    [[nodiscard]] Run run(quint64 offset, unsigned marker) const
    {
        constexpr unsigned countFollows = 15;
        if ((marker & 15U) != countFollows)
            return {.start = offset + 1, .count = marker & 15U};
        const auto countMarker = static_cast<unsigned>(objectNumber(offset + 1, 1));
        require(countMarker >> 4U == 1 && (countMarker & 15U) <= 3);
        const quint64 size = quint64{1} << (countMarker & 15U);
        return {.start = offset + 2 + size, .count = objectNumber(offset + 2, size)};
    }

    [[nodiscard]] QByteArrayView bytesOf(Run run, quint64 unit)
    {
        require(run.start <= m_tableStart && run.count <= (m_tableStart - run.start) / unit);
        spend(run.count * unit);
        return m_bytes.sliced(static_cast<qsizetype>(run.start),
                              static_cast<qsizetype>(run.count * unit));
    }

    QVariant bytesOrText(Run run, unsigned kind)
    {
        switch (kind) {
        case 0x4:
            return bytesOf(run, 1).toByteArray();
        case 0x5:
            return QString::fromLatin1(bytesOf(run, 1));
        case 0x6: {
            const QByteArrayView utf16 = bytesOf(run, 2);
            QString text(static_cast<qsizetype>(run.count), Qt::Uninitialized);
            qFromBigEndian<char16_t>(utf16.data(), text.size(), text.data());
            return text;
        }
        default:
            require(false);
            return {};
        }
    }

    [[nodiscard]] quint64 reference(Run run, quint64 index) const
    {
        return number(static_cast<qsizetype>(run.start + index * m_referenceSize), m_referenceSize);
    }

    QVariantList array(Run run, int depth)
    {
        static_cast<void>(bytesOf(run, m_referenceSize));
        QVariantList list;
        for (quint64 i = 0; i < run.count; ++i)
            list.append(object(reference(run, i), depth + 1));
        return list;
    }

    QVariantMap dictionary(Run run, int depth)
    {
        static_cast<void>(bytesOf(run, 2 * m_referenceSize));
        QVariantMap map;
        for (quint64 i = 0; i < run.count; ++i) {
            const QVariant key = object(reference(run, i), depth + 1);
            require(key.typeId() == QMetaType::QString);
            map.insert(key.toString(), object(reference(run, run.count + i), depth + 1));
        }
        return map;
    }

    QByteArrayView m_bytes;
    QString m_path;
    qint64 m_budget;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
    quint64 m_objectCount = 0;
    quint64 m_tableStart = 0;
};

struct NodeDeleter {
    void operator()(plist_t node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, NodeDeleter>;

// The library makes no node of a number above the signed range, nor of a date far from 2001, but it
// reads them.
Node nodeFromXML(const QByteArray &element)
{
    const QByteArray xml = R"(<plist version="1.0">)" + element + "</plist>";
    plist_t node = nullptr;
    plist_from_xml(xml.constData(), static_cast<uint32_t>(xml.size()), &node);
    return Node(node);
}

Node nodeFromDate(const QDateTime &date)
{
    const qint64 milliseconds = date.toMSecsSinceEpoch() - referenceDate * 1000;
    const auto seconds = static_cast<qint64>(std::floor(static_cast<double>(milliseconds) / 1000));
    if (seconds < std::numeric_limits<int32_t>::min()
        || seconds > std::numeric_limits<int32_t>::max())
        return nodeFromXML("<date>" + date.toUTC().toString(Qt::ISODate).toLatin1() + "</date>");
    const auto microseconds = static_cast<int32_t>((milliseconds - seconds * 1000) * 1000);
    return Node(plist_new_date(static_cast<int32_t>(seconds), microseconds));
}

Node nodeFromUnsigned(quint64 value)
{
    if (value <= static_cast<quint64>(std::numeric_limits<qint64>::max()))
        return Node(plist_new_uint(value));
    return nodeFromXML("<integer>" + QByteArray::number(value) + "</integer>");
}

// The library's strings end at the first NUL.
QByteArray terminatedText(const QString &text)
{
    return QString(text).remove(QChar(u'\0')).toUtf8();
}

Node nodeFrom(const QVariant &value);

Node nodeFromMap(const QVariantMap &map)
{
    if (const std::optional<quint64> number = objectReferenceNumber(map))
        return Node(plist_new_uid(*number));
    Node node(plist_new_dict());
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
        Node child = nodeFrom(entry.value());
        plist_dict_set_item(node.get(), terminatedText(entry.key()).constData(), child.release());
    }
    return node;
}

Node nodeFromList(const QVariantList &list)
{
    Node node(plist_new_array());
    for (const QVariant &value : list)
        plist_array_append_item(node.get(), nodeFrom(value).release());
    return node;
}

Node nodeFrom(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QVariantMap:
        return nodeFromMap(value.toMap());
    case QMetaType::QVariantList:
        return nodeFromList(value.toList());
    case QMetaType::QString:
        return Node(plist_new_string(terminatedText(value.toString()).constData()));
    case QMetaType::Bool:
        return Node(plist_new_bool(value.toBool() ? 1 : 0));
    case QMetaType::Int:
    case QMetaType::LongLong: // the library keeps the bits
        return Node(plist_new_uint(static_cast<quint64>(value.toLongLong())));
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return nodeFromUnsigned(value.toULongLong());
    case QMetaType::Double:
        return Node(plist_new_real(value.toDouble()));
    case QMetaType::QDateTime:
        return nodeFromDate(value.toDateTime());
    case QMetaType::QByteArray: {
        const QByteArray data = value.toByteArray();
        return Node(plist_new_data(data.constData(), static_cast<quint64>(data.size())));
    }
    default:
        throw unwritableValue(value.typeName());
    }
}

} // namespace

bool isBinaryPropertyList(QByteArrayView bytes)
{
    return bytes.startsWith(magic);
}

QVariant parseBinaryPropertyList(QByteArrayView bytes, const QString &path)
{
    return BinaryReader(bytes, path).read();
}

QByteArray serializeBinaryPropertyList(const QVariant &value)
{
    const Node node = nodeFrom(value);
    char *bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(node.get(), &bytes, &length);
    const std::unique_ptr<char, decltype(&std::free)> owner(bytes, &std::free);
    if (!bytes)
        throw PlatformError(
            QCoreApplication::translate("PlatformError", "The property list could not be written"));
    return {bytes, static_cast<qsizetype>(length)};
}
