#include "model/folderpreview.h"

#include "model/accentcolor.h"

#include <algorithm>

namespace {

constexpr qint64 fewestColumns = 2;
constexpr qint64 mostColumns = 4; // more could not be told apart at the size of an icon

} // namespace

bool hasPicture(const DockFolder &folder)
{
    return folder.customIconData && !folder.customIconData->isEmpty();
}

QString previewColor(const DockFolder &folder)
{
    return plainHexText(folder.accentColorHex.value_or(QString()));
}

int previewColumns(const DockFolder &folder)
{
    if (folder.gridColumns)
        return static_cast<int>(std::clamp<qint64>(*folder.gridColumns, 1, mostColumns));
    qint64 columns = fewestColumns;
    while (columns < mostColumns && columns * columns < folder.items.size())
        ++columns;
    return static_cast<int>(columns);
}

QStringList previewURLs(const DockFolder &folder)
{
    const qsizetype columns = previewColumns(folder);
    QStringList texts;
    for (const DockFolderItem &item :
         folder.items.first(std::min(columns * columns, folder.items.size())))
        texts.append(item.url.text());
    return texts;
}
