#include "system/docktiles.h"

#include "platform/directories.h"
#include "platform/error.h"
#include "platform/mainthread.h"
#include "platform/processrunner.h"
#include "platform/text.h"
#include "platform/userdefaults.h"

#include <QDir>

#include <algorithm>
#include <optional>

namespace {

constexpr QStringView persistentAppsKey{u"persistent-apps"};

bool isDictionary(const QVariant &value)
{
    return value.typeId() == QMetaType::QVariantMap;
}

std::optional<QVariantMap> dictionaryIn(const QVariantMap &dictionary, const QString &key)
{
    const QVariant value = dictionary.value(key);
    return isDictionary(value) ? std::optional(value.toMap()) : std::nullopt;
}

std::optional<QString> stringIn(const QVariantMap &dictionary, const QString &key)
{
    const QVariant value = dictionary.value(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QString> tileURLString(const QVariantMap &tileData)
{
    const auto fileData = dictionaryIn(tileData, QStringLiteral("file-data"));
    return fileData ? stringIn(*fileData, QStringLiteral("_CFURLString")) : std::nullopt;
}

} // namespace

DockTiles::DockTiles(UserDefaults &dockDefaults, ProcessRunner &processes,
                     const Directories &directories)
    : m_dockDefaults(dockDefaults)
    , m_processes(processes)
    , m_directories(directories)
{
}

void DockTiles::unregisterDockTiles(const FileURL &appBundle) const
{
    auto tiles = m_dockDefaults.array(persistentAppsKey.toString());
    // An array with anything else in it is not ours to understand, and stays whole.
    if (!tiles || !std::ranges::all_of(*tiles, isDictionary))
        return;

    const QString targetPath = appBundle.standardizedPath();
    const QString targetLabel = appBundle.displayName();
    const auto removedCount = tiles->removeIf([&](const QVariant &tile) {
        return dockTileMatches(tile.toMap(), targetPath, targetLabel);
    });
    if (removedCount == 0)
        return;

    m_dockDefaults.setArray(persistentAppsKey.toString(), *tiles);
    m_dockDefaults.synchronize(); // the Dock reads them as soon as it is back
    restartDock();
}

void DockTiles::restartDock() const
{
    ignoringErrors([this] {
        m_processes.start(m_directories.system(QStringLiteral("/usr/bin/killall")),
                          {QStringLiteral("Dock")});
    });
}

bool dockTileMatches(const QVariantMap &entry, const QString &targetPath,
                     const QString &targetLabel)
{
    requireMainThread();
    const auto tileData = dictionaryIn(entry, QStringLiteral("tile-data"));
    if (!tileData)
        return false;
    if (const auto urlString = tileURLString(*tileData))
        return isCanonicallyEqual(standardizedPathFromURLString(*urlString), targetPath);
    const auto label = stringIn(*tileData, QStringLiteral("file-label"));
    return label && isCanonicallyEqual(*label, targetLabel);
}

QString standardizedPathFromURLString(const QString &text)
{
    if (const auto url = FileURL::fromText(text); url && url->isFileURL())
        return url->standardizedPath();
    return standardizedPath(QDir::current().absoluteFilePath(text));
}
