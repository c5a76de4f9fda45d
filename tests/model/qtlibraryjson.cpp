#include "tests/model/qtlibraryjson.h"

#include "model/uuidtext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

struct InvalidLibrary { };

QString text(const QJsonValue &value)
{
    if (!value.isString())
        throw InvalidLibrary();
    return value.toString();
}

QUuid uuid(const QJsonValue &value)
{
    const std::optional<QUuid> id = uuidFromText(text(value));
    if (!id)
        throw InvalidLibrary();
    return *id;
}

// Qt's own decoder takes a text without its fill.
QByteArray bytes(const QJsonValue &value)
{
    const QByteArray base64 = text(value).toUtf8();
    const auto result
        = QByteArray::fromBase64Encoding(base64, QByteArray::AbortOnBase64DecodingErrors);
    if (!result || base64.size() % 4 != 0)
        throw InvalidLibrary();
    return *result;
}

qint64 integer(const QJsonValue &value)
{
    constexpr qint64 no = std::numeric_limits<qint64>::min();
    if (value.toInteger(no) == no)
        throw InvalidLibrary();
    return value.toInteger();
}

template <typename Read>
auto optional(const QJsonValue &value, Read read) -> std::optional<decltype(read(value))>
{
    if (value.isNull() || value.isUndefined())
        return std::nullopt;
    return read(value);
}

template <typename Read> auto list(const QJsonValue &value, Read read)
{
    if (!value.isArray())
        throw InvalidLibrary();
    QList<decltype(read(QJsonValue()))> values;
    for (const QJsonValue element : value.toArray())
        values.append(read(element));
    return values;
}

QString kindText(DockFolderItem::Kind kind)
{
    switch (kind) {
    case DockFolderItem::Kind::application:
        return QStringLiteral("application");
    case DockFolderItem::Kind::folder:
        return QStringLiteral("folder");
    case DockFolderItem::Kind::file:
        break;
    }
    return QStringLiteral("file");
}

DockFolderItem::Kind kind(const QJsonValue &value)
{
    for (const auto known : {DockFolderItem::Kind::application, DockFolderItem::Kind::folder,
                             DockFolderItem::Kind::file}) {
        if (text(value) == kindText(known))
            return known;
    }
    throw InvalidLibrary();
}

FileURL url(const QJsonValue &value)
{
    const std::optional<FileURL> found = FileURL::fromText(text(value));
    if (!found)
        throw InvalidLibrary();
    return *found;
}

DockFolderItem item(const QJsonValue &value)
{
    return {.id = uuid(value[u"id"]),
            .name = text(value[u"name"]),
            .url = url(value[u"url"]),
            .bookmarkData = optional(value[u"bookmarkData"], bytes),
            .kind = kind(value[u"kind"])};
}

DockFolder folder(const QJsonValue &value)
{
    return {.id = uuid(value[u"id"]),
            .name = text(value[u"name"]),
            .items = list(value[u"items"], item),
            .accentColorHex = optional(value[u"accentColorHex"], text),
            .iconSymbol = optional(value[u"iconSymbol"], text),
            .customIconData = optional(value[u"customIconData"], bytes),
            .gridColumns = optional(value[u"gridColumns"], integer)};
}

QJsonValue json(const DockFolder &folder);

QJsonValue json(const DockFolderItem &item)
{
    QJsonObject object{{QStringLiteral("id"), uuidText(item.id)},
                       {QStringLiteral("name"), item.name},
                       {QStringLiteral("url"), item.url.text()},
                       {QStringLiteral("kind"), kindText(item.kind)}};
    if (item.bookmarkData)
        object.insert(u"bookmarkData", QString::fromLatin1(item.bookmarkData->toBase64()));
    return object;
}

template <typename T> QJsonArray json(const QList<T> &values)
{
    QJsonArray array;
    for (const T &value : values)
        array.append(json(value));
    return array;
}

QJsonValue json(const DockFolder &folder)
{
    QJsonObject object{{QStringLiteral("id"), uuidText(folder.id)},
                       {QStringLiteral("name"), folder.name},
                       {QStringLiteral("items"), json(folder.items)}};
    if (folder.accentColorHex)
        object.insert(u"accentColorHex", *folder.accentColorHex);
    if (folder.iconSymbol)
        object.insert(u"iconSymbol", *folder.iconSymbol);
    if (folder.customIconData)
        object.insert(u"customIconData",
                      QString::fromLatin1(folder.customIconData->bytes().toBase64()));
    if (folder.gridColumns)
        object.insert(u"gridColumns", *folder.gridColumns);
    return object;
}

} // namespace

std::optional<DockFolderLibrary> decodeLibraryByQt(const QByteArray &bytes)
{
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    try {
        return DockFolderLibrary{.folders = list(document[u"folders"], folder),
                                 .selectedFolderID = uuid(document[u"selectedFolderID"])};
    } catch (const InvalidLibrary &) {
        return std::nullopt;
    }
}

QByteArray encodeLibraryByQt(const DockFolderLibrary &library)
{
    const QJsonObject root{
        {QStringLiteral("folders"), json(library.folders)},
        {QStringLiteral("selectedFolderID"), uuidText(library.selectedFolderID)}};
    return QJsonDocument(root).toJson(QJsonDocument::Compact);
}
