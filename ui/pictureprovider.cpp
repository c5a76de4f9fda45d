#include "ui/pictureprovider.h"

#include "ui/pictureresponse.h"
#include "ui/picturestore.h"

#include <QBuffer>
#include <QImageReader>

PictureProvider::PictureProvider(const PictureStore &pictures)
    : m_pictures(pictures)
{
    setUpForPictures(m_pool);
}

PictureProvider::~PictureProvider()
{
    m_pool.clear();
    m_pool.waitForDone();
}

QQuickImageResponse *PictureProvider::requestImageResponse(const QString &id,
                                                           const QSize &requestedSize)
{
    return new PictureResponse(m_pool, [bytes = m_pictures.bytes(id), requestedSize] {
        return decodedPicture(bytes, requestedSize);
    });
}

QImage decodedPicture(const QByteArray &bytes, const QSize &size)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    QImage image = reader.read();
    const QSize covering = image.size().scaled(size.expandedTo({0, 0}), // -1: that side is free
                                               Qt::KeepAspectRatioByExpanding);
    if (!covering.isEmpty() && covering.width() < image.width())
        image = image.scaled(covering, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.convertTo(QImage::Format_ARGB32_Premultiplied); // what a screen takes without conversion
    return image;
}
