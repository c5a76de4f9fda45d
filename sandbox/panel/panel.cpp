#include "sandbox/panel/panel.h"

#include "sandbox/common/launcher.h"
#include "sandbox/common/statelog.h"
#include "sandbox/scene/iconprovider.h"

#include "model/accentcolor.h"

#include <QDesktopServices>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <algorithm>

namespace {

constexpr int defaultColumns = 4;
constexpr int mostColumns = 8;
constexpr qsizetype ownItemCount = 8;
const QColor defaultAccent(0x4f83d3);

// What Nestlet shows when it is nobody's proxy: some of the applications that are there.
DockFolder ownFolder(const StandInMac &mac)
{
    DockFolder folder{.id = appStoreFolderID(), .name = QStringLiteral("Nestlet")};
    const QDir applications(mac.path(u"Applications"));
    const QStringList names = applications.entryList({QStringLiteral("*.app")}, QDir::Dirs,
                                                     QDir::Name | QDir::LocaleAware);
    for (const QString &name : names.first(std::min(ownItemCount, names.size()))) {
        const FileURL url = FileURL::directory(applications.filePath(name));
        folder.items.append({.id = QUuid::createUuidV5(folder.id, name),
                             .name = url.displayName(),
                             .url = url,
                             .kind = DockFolderItem::Kind::application});
    }
    return folder;
}

QList<Row> rowsOf(const QList<DockFolderItem> &items)
{
    QList<Row> rows;
    for (const DockFolderItem &item : items) {
        const QString path = item.url.path();
        rows.append({.key = item.id.toString(),
                     .values = {{QStringLiteral("name"), item.name},
                                {QStringLiteral("path"), path},
                                {QStringLiteral("icon"), IconProvider::sourceForFile(path)}}});
    }
    return rows;
}

QString stateLine(const DockFolder &folder)
{
    QJsonArray names;
    for (const DockFolderItem &item : folder.items)
        names.append(item.name);
    QJsonObject state{{QStringLiteral("name"), folder.name}, {QStringLiteral("items"), names}};
    if (folder.accentColorHex)
        state.insert(QStringLiteral("accent"), *folder.accentColorHex);
    if (folder.gridColumns)
        state.insert(QStringLiteral("columns"), *folder.gridColumns);
    return u"folder " + QString::fromUtf8(QJsonDocument(state).toJson(QJsonDocument::Compact));
}

} // namespace

Panel::Panel(const StandInMac &mac, const AppBundle &bundle, QObject *parent)
    : QObject(parent)
    , m_mac(mac)
    , m_bundle(bundle)
    , m_library(mac)
    , m_items({QStringLiteral("name"), QStringLiteral("path"), QStringLiteral("icon")})
{
    connect(&m_library, &Library::changed, this, &Panel::refresh);
    refresh();
}

QColor Panel::accent() const
{
    return colorFromHexText(m_folder.accentColorHex.value_or(QString())).value_or(defaultAccent);
}

int Panel::columns() const
{
    return static_cast<int>(
        std::clamp<qint64>(m_folder.gridColumns.value_or(defaultColumns), 1, mostColumns));
}

QString Panel::hint() const
{
    if (m_isMissing)
        return QStringLiteral("This folder is not in the library any more.");
    return m_folder.items.isEmpty() ? QStringLiteral("Nothing in here yet") : QString();
}

void Panel::setVisible(bool visible)
{
    if (m_visible == visible)
        return;
    m_visible = visible;
    logState(visible ? QStringLiteral("shown") : QStringLiteral("hidden"));
    Q_EMIT visibleChanged();
}

void Panel::showAt(int anchor)
{
    m_anchor = anchor;
    Q_EMIT anchorChanged();
    setVisible(true);
}

void Panel::open(const QString &path)
{
    logState(u"opening " + path);
    if (!openLikeDock(m_mac, path, m_anchor))
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    setVisible(false);
}

DockFolder Panel::currentFolder() const
{
    const std::optional<QUuid> id = m_bundle.dockFolderID();
    if (!id)
        return m_library.folder(appStoreFolderID()).value_or(ownFolder(m_mac));
    return m_library.folder(*id).value_or(DockFolder{.id = *id, .name = m_bundle.name()});
}

void Panel::refresh()
{
    const DockFolder folder = currentFolder();
    const bool isMissing = !isOwnFolder() && !m_library.folder(folder.id);
    if (folder == m_folder && isMissing == m_isMissing)
        return;
    m_folder = folder;
    m_isMissing = isMissing;
    m_items.setRows(rowsOf(folder.items));
    logState(isMissing ? QStringLiteral("folder missing") : stateLine(folder));
    Q_EMIT changed();
}
