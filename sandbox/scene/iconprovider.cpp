#include "sandbox/scene/iconprovider.h"

#include "sandbox/drawing/fileicon.h"

#include <QUrl>

namespace {

constexpr int defaultSide = 64;
const QString filePrefix = QStringLiteral("file/");
const QString picturePrefix = QStringLiteral("picture/");

} // namespace

IconProvider::IconProvider()
    : QQuickImageProvider(QQuickImageProvider::Image)
{
}

QString IconProvider::sourceForFile(const QString &path)
{
    return u"image://icons/" + filePrefix + QString::fromLatin1(QUrl::toPercentEncoding(path));
}

QString IconProvider::sourceForPicture(const QString &name, const QImage &picture)
{
    const QMutexLocker lock(&m_mutex);
    Picture &kept = m_pictures[name];
    if (kept.image != picture)
        kept = {.image = picture, .revision = kept.revision + 1};
    return QStringLiteral("image://icons/%1%2/%3").arg(picturePrefix, name).arg(kept.revision);
}

QImage IconProvider::picture(const QString &name, int side) const
{
    const QMutexLocker lock(&m_mutex);
    return m_pictures.value(name).image.scaled(side, side, Qt::KeepAspectRatio,
                                               Qt::SmoothTransformation);
}

QImage IconProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const int side = requestedSize.width() > 0 ? requestedSize.width() : defaultSide;
    QImage image;
    if (id.startsWith(filePrefix))
        image = fileIcon(QUrl::fromPercentEncoding(id.sliced(filePrefix.size()).toUtf8()), side);
    else if (id.startsWith(picturePrefix))
        image = picture(id.sliced(picturePrefix.size()).section(u'/', 0, 0), side);
    if (size)
        *size = image.size();
    return image;
}
