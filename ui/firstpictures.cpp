#include "ui/firstpictures.h"

#include "ui/foldericonmetrics.h"
#include "ui/folderlistmodel.h"
#include "ui/iconprovider.h"
#include "ui/pictureprovider.h"
#include "ui/windowengine.h"

#include <algorithm>

namespace {

constexpr int rowsInView = 15; // of a window that has its first size

QSize deviceSquare(qreal side, qreal pixelRatio)
{
    return (QSizeF(side, side) * pixelRatio).toSize();
}

IconGrid grid(const QStringList &urls, int columns, qreal pixelRatio)
{
    using Metrics = FolderIconMetrics;
    constexpr qreal side
        = Metrics::sidebarSize - 2 * (Metrics::sidebarSize * Metrics::gridMarginShare);
    constexpr qreal spacing = Metrics::sidebarSize * Metrics::gridSpacingShare;
    return {.urls = urls,
            .rows = columns,
            .columns = columns,
            .spacing = qRound(spacing * pixelRatio),
            .size = deviceSquare(side, pixelRatio)};
}

} // namespace

void beginFirstPictures(const QQmlEngine &engine, const FolderListModel &folders, qreal pixelRatio)
{
    auto *const icons = providerOf<IconProvider>(&engine);
    const auto *const pictures = providerOf<PictureProvider>(&engine);
    for (int row = 0; row < std::min(rowsInView, folders.rowCount()); ++row) {
        const auto value
            = [&](FolderListModel::Role role) { return folders.data(folders.index(row), role); };
        // In the order in which an icon chooses what it shows.
        if (const QString source = value(FolderListModel::PictureSourceRole).toString();
            !source.isEmpty()) {
            using Metrics = FolderIconMetrics;
            icons->loader().begin(pictures->request(source,
                                                    deviceSquare(Metrics::sidebarSize, pixelRatio),
                                                    Metrics::sidebarRadius / Metrics::sidebarSize));
        } else if (const QStringList urls = value(FolderListModel::PreviewURLsRole).toStringList();
                   !urls.isEmpty() && value(FolderListModel::IconSymbolRole).toString().isEmpty()) {
            const int columns = value(FolderListModel::PreviewColumnsRole).toInt();
            icons->loader().begin(icons->gridRequest(grid(urls, columns, pixelRatio)));
        }
    }
}
