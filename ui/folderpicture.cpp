#include "ui/folderpicture.h"

#include "ui/pictureprovider.h"
#include "ui/windowengine.h"

FolderPicture::FolderPicture(QQuickItem *parent)
    : LoadedPicture(parent)
{
    connect(this, &FolderPicture::sourceChanged, this, &FolderPicture::changed);
    connect(this, &FolderPicture::radiusChanged, this, &FolderPicture::changed);
}

PictureRequest FolderPicture::request(IconProvider &, const QSize &area) const
{
    const auto *const pictures = providerOf<PictureProvider>(qmlEngine(this));
    if (pictures == nullptr || m_source.isEmpty())
        return {};
    return pictures->request(m_source, area, width() > 0 ? m_radius / width() : 0);
}

QImage FolderPicture::placeholder(const QImage &, const QSize &) const
{
    return {}; // the ground it stands on
}
