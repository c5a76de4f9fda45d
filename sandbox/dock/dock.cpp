#include "sandbox/dock/dock.h"

#include "sandbox/common/docktile.h"
#include "sandbox/common/files.h"
#include "sandbox/common/launcher.h"
#include "sandbox/common/statelog.h"
#include "sandbox/dock/foldertile.h"
#include "sandbox/scene/iconprovider.h"

#include "platform/error.h"
#include "platform/propertylist.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

#include <csignal>

namespace {

constexpr std::chrono::milliseconds pollInterval{600};
constexpr int tileSide = 128; ///< of a drawn folder; shown smaller

QString stateLine(const QList<Row> &rows)
{
    QJsonArray names;
    for (const Row &row : rows)
        names.append(row.values.value(QStringLiteral("name")).toString());
    return u"tiles " + QString::fromUtf8(QJsonDocument(names).toJson(QJsonDocument::Compact));
}

} // namespace

Dock::Dock(const StandInMac &mac, IconProvider &icons, QObject *parent)
    : QObject(parent)
    , m_mac(mac)
    , m_icons(icons)
    , m_library(mac)
    , m_tiles({QStringLiteral("name"), QStringLiteral("path"), QStringLiteral("icon"),
               QStringLiteral("isPinned"), QStringLiteral("isRunning"),
               QStringLiteral("isFirstRunning")})
{
    readPreferences();
    m_processes = standInProcesses(m_mac);
    refresh();
    connect(&m_library, &Library::changed, this, &Dock::refresh);
    connect(&m_poll, &QTimer::timeout, this, &Dock::look);
    m_poll.start(pollInterval);
}

void Dock::readPreferences()
{
    m_pinned.clear();
    const QVariantMap preferences = readDictionary(m_mac.dockPreferences()).value_or(QVariantMap());
    for (const QVariant &tile : persistentApps(preferences)) {
        if (const auto path = pathOfDockTile(tile); path && !m_pinned.contains(*path))
            m_pinned.append(*path);
    }
}

// Nothing tells of processes that come and go, so they are counted now and then.
void Dock::look()
{
    if (!QFileInfo::exists(m_mac.marker()))
        return QCoreApplication::quit();
    const QList<StandInProcess> processes = standInProcesses(m_mac);
    if (processes == m_processes)
        return;
    m_processes = processes;
    refresh();
}

QStringList Dock::runningBundles() const
{
    QStringList bundles;
    for (const StandInProcess &process : m_processes) {
        const auto path = AppBundle::pathForExecutable(process.executable);
        if (path && !bundles.contains(*path))
            bundles.append(*path);
    }
    return bundles;
}

void Dock::refresh()
{
    const QStringList running = runningBundles();
    QList<Row> rows;
    for (const QString &path : m_pinned)
        rows.append(rowFor(path, true, running.contains(path), false));
    const qsizetype pinnedCount = rows.size();
    for (const QString &path : running) {
        const auto app = AppBundle::at(path);
        if (!m_pinned.contains(path) && app && !app->isAgent())
            rows.append(rowFor(path, false, true, rows.size() == pinnedCount));
    }
    if (rows == m_tiles.rows())
        return;
    m_tiles.setRows(rows);
    logState(stateLine(rows));
}

Row Dock::rowFor(const QString &path, bool isPinned, bool isRunning, bool isFirstRunning)
{
    const auto app = AppBundle::at(path);
    return {.key = path,
            .values
            = {{QStringLiteral("name"), app ? app->name() : QFileInfo(path).completeBaseName()},
               {QStringLiteral("path"), path},
               {QStringLiteral("icon"), app ? iconFor(*app) : IconProvider::sourceForFile(path)},
               {QStringLiteral("isPinned"), isPinned},
               {QStringLiteral("isRunning"), isRunning},
               {QStringLiteral("isFirstRunning"), isFirstRunning}}};
}

QString Dock::iconFor(const AppBundle &app)
{
    const std::optional<QUuid> id = app.dockFolderID();
    if (!id)
        return IconProvider::sourceForFile(app.path());
    const std::optional<DockFolder> folder = m_library.folder(*id);
    if (!folder)
        return IconProvider::sourceForFile(app.path());
    FolderIcon &kept = m_folderIcons[*id];
    if (kept.source.isEmpty() || kept.folder != *folder)
        kept = {.folder = *folder,
                .source = m_icons.sourceForPicture(id->toString(QUuid::WithoutBraces),
                                                   drawFolderTile(*folder, tileSide))};
    return kept.source;
}

void Dock::open(const QString &path, int anchor)
{
    logState(u"opening " + path);
    openLikeDock(m_mac, path, anchor);
}

void Dock::quit(const QString &path)
{
    for (const StandInProcess &process : standInProcesses(m_mac)) {
        if (AppBundle::pathForExecutable(process.executable) == path)
            kill(static_cast<pid_t>(process.processID), SIGTERM);
    }
}

void Dock::setPinned(const QString &path, bool isPinned)
{
    const QVariantMap preferences = readDictionary(m_mac.dockPreferences()).value_or(QVariantMap());
    QVariantList tiles = persistentApps(preferences);
    tiles.removeIf([&](const QVariant &tile) { return pathOfDockTile(tile) == path; });
    if (const auto app = AppBundle::at(path); app && isPinned)
        tiles.append(dockTileFor(*app, path));
    ignoringErrors([&] {
        writeFile(m_mac.dockPreferences(),
                  serializePropertyList(withPersistentApps(preferences, tiles),
                                        PropertyListFormat::Binary));
    });
    readPreferences();
    refresh();
}
