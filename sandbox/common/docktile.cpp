#include "sandbox/common/docktile.h"

#include "platform/fileurl.h"

#include <QCryptographicHash>
#include <QtEndian>

namespace {

constexpr qint64 urlStringType = 15; ///< "_CFURLString" holds a URL, not a path
constexpr qint64 applicationFileType = 41;

const QString appsKey = QStringLiteral("persistent-apps");
const QString dataKey = QStringLiteral("tile-data");
const QString fileKey = QStringLiteral("file-data");
const QString urlKey = QStringLiteral("_CFURLString");

// A number that stays the same for the same application, so that equal Docks have equal
// preferences.
qint64 tileNumber(const QString &path)
{
    const QByteArray hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256);
    return qFromLittleEndian<quint32>(hash.constData());
}

} // namespace

QVariantMap dockTileFor(const AppBundle &app, const QString &path)
{
    const QVariantMap file{{urlKey, FileURL::directory(path).text()},
                           {QStringLiteral("_CFURLStringType"), urlStringType}};
    const QVariantMap data{{QStringLiteral("bundle-identifier"), app.identifier()},
                           {QStringLiteral("dock-extra"), false},
                           {fileKey, file},
                           {QStringLiteral("file-label"), FileURL::directory(path).displayName()},
                           {QStringLiteral("file-mod-date"), qint64{0}},
                           {QStringLiteral("file-type"), applicationFileType},
                           {QStringLiteral("is-beta"), false},
                           {QStringLiteral("parent-mod-date"), qint64{0}}};
    return {{QStringLiteral("GUID"), tileNumber(path)},
            {dataKey, data},
            {QStringLiteral("tile-type"), QStringLiteral("file-tile")}};
}

std::optional<QString> pathOfDockTile(const QVariant &tile)
{
    const QString text
        = tile.toMap().value(dataKey).toMap().value(fileKey).toMap().value(urlKey).toString();
    if (text.isEmpty())
        return std::nullopt;
    const auto url = FileURL::fromText(text);
    return url && url->isFileURL() ? url->standardizedPath() : standardizedPath(text);
}

QVariantList persistentApps(const QVariantMap &preferences)
{
    return preferences.value(appsKey).toList();
}

QVariantMap withPersistentApps(QVariantMap preferences, const QVariantList &tiles)
{
    preferences.insert(appsKey, tiles);
    return preferences;
}
