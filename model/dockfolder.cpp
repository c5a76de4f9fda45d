#include "model/dockfolder.h"

namespace {

bool isSame(const std::optional<QByteArray> &a, const std::optional<QByteArray> &b)
{
    const bool isShared = a && b && a->constData() == b->constData() && a->size() == b->size();
    return isShared || a == b;
}

} // namespace

bool DockFolderItem::operator==(const DockFolderItem &other) const
{
    return id == other.id && name == other.name && url == other.url
        && isSame(bookmarkData, other.bookmarkData) && kind == other.kind;
}

// QList looks for shared data itself.
bool DockFolder::operator==(const DockFolder &other) const
{
    return id == other.id && name == other.name && items == other.items
        && accentColorHex == other.accentColorHex && iconSymbol == other.iconSymbol
        && customIconData == other.customIconData && gridColumns == other.gridColumns;
}

const QUuid &appStoreFolderID()
{
    static const QUuid id(0xEE000000, 0xEEEE, 0xEEEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE,
                          0xEE);
    return id;
}

const DockFolder &fallbackFolder()
{
    static const DockFolder folder{.id = QUuid::createUuid(), .name = QStringLiteral("Nestlet")};
    return folder;
}
