#include "ui/folderdetailmodel.h"

#include "model/folderpreview.h"
#include "model/uuidtext.h"
#include "platform/qt/qtclock.h"
#include "store/companionstore.h"
#include "ui/picturestore.h"
#include "ui/urltexts.h"

using namespace std::chrono_literals;

namespace {

// Every stored colour writes the library.
constexpr auto storedColorInterval = 100ms;

} // namespace

FolderDetailModel::FolderDetailModel(CompanionStore &store, PictureStore &pictures, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_pictures(pictures)
    , m_iconImages(store)
    , m_clock(std::make_unique<QtClock>())
    , m_colorChanges(*m_clock, storedColorInterval)
{
    connect(&store, &CompanionStore::foldersChanged, this, &FolderDetailModel::update);
    connect(&store, &CompanionStore::presenceChanged, this, &FolderDetailModel::update);
    connect(&store, &CompanionStore::lockedFolderIDsChanged, this, &FolderDetailModel::update);
}

FolderDetailModel::~FolderDetailModel()
{
    m_colorChanges.flush();
}

void FolderDetailModel::setFolder(const std::optional<QUuid> &id)
{
    if (m_id == id)
        return;
    m_colorChanges.flush();
    m_id = id;
    update();
    Q_EMIT folderIDChanged();
}

void FolderDetailModel::update()
{
    const DockFolder none{.id = m_id.value_or(QUuid())};
    m_folder = m_id ? m_store.folder(*m_id).value_or(none) : none;
    if (m_colorChanges.isWaiting())
        m_folder.accentColorHex = m_chosenColor;
    m_items.setItems(m_folder.items);
    Q_EMIT changed();
}

QString FolderDetailModel::folderID() const
{
    return m_id ? uuidText(*m_id) : QString();
}

bool FolderDetailModel::isLocked() const
{
    return m_store.isLocked(m_folder.id);
}

bool FolderDetailModel::isInstalled() const
{
    return m_store.isInstalled(m_folder.id);
}

bool FolderDetailModel::isInstalling() const
{
    return m_store.isInstalling(m_folder.id);
}

QStringList FolderDetailModel::itemURLs() const
{
    QStringList texts;
    for (const DockFolderItem &item : m_folder.items)
        texts.append(item.url.text());
    return texts;
}

QString FolderDetailModel::accentColorHex() const
{
    return previewColor(m_folder);
}

QString FolderDetailModel::iconSymbol() const
{
    return m_folder.iconSymbol.value_or(QString());
}

bool FolderDetailModel::hasCustomIcon() const
{
    return hasPicture(m_folder);
}

QString FolderDetailModel::pictureSource() const
{
    return m_pictures.pictureSource(m_folder);
}

int FolderDetailModel::gridColumns() const
{
    if (!m_folder.gridColumns)
        return 0;
    const qint64 columns = *m_folder.gridColumns;
    return columns > 0 && std::in_range<int>(columns) ? static_cast<int>(columns) : -1;
}

int FolderDetailModel::previewColumns() const
{
    return ::previewColumns(m_folder);
}

QStringList FolderDetailModel::previewURLs() const
{
    return ::previewURLs(m_folder);
}

QString FolderDetailModel::commitName(const QString &draft)
{
    if (draft.trimmed() != m_folder.name)
        m_store.renameFolder(m_folder.id, draft);
    return m_folder.name;
}

void FolderDetailModel::showInDock()
{
    if (!isInstalling())
        m_store.installProxy(m_folder.id);
}

void FolderDetailModel::revealInFinder()
{
    m_store.revealProxy(m_folder.id);
}

void FolderDetailModel::removeFolder()
{
    m_store.deleteFolder(m_folder.id);
}

void FolderDetailModel::addItems(const QStringList &urls)
{
    m_store.addItems(m_folder.id, urlsFromTexts(urls));
}

void FolderDetailModel::removeItem(const QString &itemID)
{
    if (const std::optional<QUuid> id = uuidFromText(itemID))
        m_store.removeItem(m_folder.id, *id);
}

void FolderDetailModel::moveItem(const QString &itemID, int index)
{
    const std::optional<QUuid> id = uuidFromText(itemID);
    const int source = m_items.rowOf(itemID);
    const int target = std::clamp(index, 0, std::max(itemCount() - 1, 0));
    if (id && source >= 0 && source != target)
        m_store.moveItem(m_folder.id, *id, target > source ? target + 1 : target);
}

void FolderDetailModel::setIconSymbol(const QString &symbol)
{
    m_iconImages.cancel(m_folder.id);
    m_store.setIconSymbol(m_folder.id, symbol.isEmpty() ? std::nullopt : std::optional(symbol));
}

void FolderDetailModel::loadCustomImage(const QString &urlText, const QString &folderID)
{
    const QUuid id = uuidFromText(folderID).value_or(m_folder.id);
    if (const std::optional<FileURL> url = FileURL::fromText(urlText); url && url->isFileURL())
        m_iconImages.load(id, *url);
}

void FolderDetailModel::setAccentColor(const QString &hex)
{
    m_chosenColor = hex.isEmpty() ? std::nullopt : std::optional(hex);
    m_colorChanges.submit(
        [this, id = m_folder.id, color = m_chosenColor] { m_store.setAccentColor(id, color); });
    if (m_colorChanges.isWaiting())
        update();
}

void FolderDetailModel::setGridColumns(int columns)
{
    m_store.setGridColumns(m_folder.id,
                           columns > 0 ? std::optional<qint64>(columns) : std::nullopt);
}
