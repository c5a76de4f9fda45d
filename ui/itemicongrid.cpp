#include "ui/itemicongrid.h"

#include "ui/iconprovider.h"

ItemIconGrid::ItemIconGrid(QQuickItem *parent)
    : LoadedPicture(parent)
{
    connect(this, &ItemIconGrid::contentChanged, this, &ItemIconGrid::changed);
}

IconGrid ItemIconGrid::grid(const QSize &area) const
{
    return {.urls = m_urls,
            .rows = m_rows,
            .columns = m_columns,
            .spacing = qRound(m_spacing * pixelRatio()),
            .size = area};
}

PictureRequest ItemIconGrid::request(IconProvider &icons, const QSize &area) const
{
    return icons.gridRequest(grid(area));
}

QImage ItemIconGrid::placeholder(const QImage &previous, const QSize &area) const
{
    const bool isSameFolder = std::exchange(m_shownFolderID, m_folderID) == m_folderID;
    if (isSameFolder && previous.size() == area)
        return previous;
    return drawnIconGrid(grid(area), {});
}

void ItemIconGrid::loaded(const QImage &previous, const QImage &picture)
{
    const bool isSameFolder = std::exchange(m_loadedFolderID, m_folderID) == m_folderID;
    if (isSameFolder && previous.cacheKey() != picture.cacheKey()
        && previous.size() == picture.size())
        Q_EMIT replaced();
}
