#include "ui/iconprovider.h"

#include "platform/workspace.h"

namespace {

constexpr qsizetype cacheBytes = qsizetype{32} << 20; // 2,600 icons of 56 pixels, 650 of 112

} // namespace

IconProvider::IconProvider(const Workspace &workspace, QObject *parent)
    : QObject(parent)
    , m_workspace(workspace)
    , m_loader(cacheBytes)
{
}

PictureRequest IconProvider::iconRequest(const QString &url, int side) const
{
    return {.key = QStringLiteral("icon %1 ").arg(side) + url,
            .make = [this, url, side] { return icon(url, side); }};
}

PictureRequest IconProvider::shadowedIconRequest(const QString &url, int side,
                                                 const DropShadow &shadow)
{
    return {.key = QStringLiteral("shadowed icon %1 %2 %3 %4 ")
                       .arg(side)
                       .arg(shadow.radius)
                       .arg(shadow.offset)
                       .arg(shadow.opacity)
                + url,
            .make = [this, url, side, shadow] { return withDropShadow(icon(url, side), shadow); }};
}

PictureRequest IconProvider::gridRequest(const IconGrid &grid)
{
    return {.key = grid.key(), .make = [this, grid] { return gridPicture(grid); }};
}

void IconProvider::refresh()
{
    m_loader.cache().clear();
    Q_EMIT refreshed();
}

QImage IconProvider::icon(const QString &url, int side) const
{
    const std::optional<FileURL> file = FileURL::fromText(url);
    QImage image = file ? m_workspace.icon(*file, side) : QImage();
    image.convertTo(QImage::Format_ARGB32_Premultiplied); // what a screen takes without conversion
    return image;
}

// On a thread of the pool, too; its icons are remembered one by one, for one of them may change.
QImage IconProvider::gridPicture(const IconGrid &grid)
{
    QList<QImage> icons;
    const int side = grid.cellSide();
    for (const QString &url : grid.urls.mid(0, grid.cells().size()))
        icons.append(m_loader.cache().findOrMake(iconRequest(url, side)));
    return drawnIconGrid(grid, icons);
}
