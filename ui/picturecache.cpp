#include "ui/picturecache.h"

#include <QMutexLocker>

std::optional<QImage> PictureCache::find(const QString &key) const
{
    const QMutexLocker lock(&m_mutex);
    const QImage *const picture = m_pictures.object(key);
    return picture == nullptr ? std::nullopt : std::optional(*picture);
}

QImage PictureCache::findOrMake(const PictureRequest &request)
{
    if (const std::optional<QImage> known = find(request.key))
        return *known;
    QImage picture = request.make();
    insert(request.key, picture);
    return picture;
}

void PictureCache::clear()
{
    const QMutexLocker lock(&m_mutex);
    m_pictures.clear();
}

void PictureCache::insert(const QString &key, const QImage &picture)
{
    constexpr qsizetype bytesOfAnEntry = 200; // about, besides the pixels
    const QMutexLocker lock(&m_mutex);
    m_pictures.insert(key, new QImage(picture), picture.sizeInBytes() + bytesOfAnEntry);
}
