#include "ui/picturestore.h"

#include "model/folderpreview.h"
#include "model/uuidtext.h"

#include <QSet>

QString PictureStore::pictureSource(const DockFolder &folder)
{
    if (!hasPicture(folder)) {
        m_pictures.remove(folder.id);
        return {};
    }
    Picture &picture = m_pictures[folder.id];
    const Base64Bytes bytes = folder.customIconData.value_or(Base64Bytes());
    if (picture.source.isEmpty() || picture.bytes != bytes)
        picture.source = uuidText(folder.id) + u'/' + QString::number(++m_version);
    picture.bytes = bytes;
    return picture.source;
}

void PictureStore::keepOnly(const QList<DockFolder> &folders)
{
    if (m_pictures.isEmpty())
        return;
    QSet<QUuid> ids;
    ids.reserve(folders.size());
    for (const DockFolder &folder : folders)
        ids.insert(folder.id);
    m_pictures.removeIf([&](const auto &entry) { return !ids.contains(entry.key()); });
}

Base64Bytes PictureStore::picture(QStringView source) const
{
    const std::optional<QUuid> folderID = uuidFromText(source.left(uuidTextLength));
    return folderID ? m_pictures.value(*folderID).bytes : Base64Bytes();
}
