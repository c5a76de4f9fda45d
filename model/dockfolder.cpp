#include "model/dockfolder.h"

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
