#include "ui/pictureprovider.h"

#include "ui/pictureresponse.h"
#include "ui/picturestore.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <algorithm>

namespace {

// The third part of a source, behind the folder and the picture's version.
double radiusShare(const QString &sourceID)
{
    constexpr double most = 0.5;
    return std::clamp(sourceID.section(u'/', 2, 2).toDouble(), 0.0, most);
}

} // namespace

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
    return new PictureResponse(
        m_pool, [bytes = m_pictures.bytes(id), requestedSize, radius = radiusShare(id)] {
            const QImage picture = decodedPicture(bytes, requestedSize);
            return radius > 0 ? roundedPicture(picture, radius) : picture;
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

QImage roundedPicture(const QImage &picture, double radiusShare)
{
    const int side = std::min(picture.width(), picture.height());
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QBrush brush(picture);
    brush.setTransform(
        QTransform::fromTranslate((side - picture.width()) / 2, (side - picture.height()) / 2));
    painter.setBrush(brush);
    painter.drawRoundedRect(image.rect(), side * radiusShare, side * radiusShare);
    return image;
}
