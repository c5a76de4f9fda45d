#include "ui/pictureprovider.h"

#include "platform/qt/imagebytes.h"
#include "ui/pictureresponse.h"
#include "ui/picturestore.h"

#include <QPainter>
#include <QQmlEngine>

#include <algorithm>

namespace {

// A picture fills its area, however small it is itself.
QImage enlarged(const QImage &picture, const QSize &area)
{
    const QSize covering = picture.size().scaled(area, Qt::KeepAspectRatioByExpanding);
    if (picture.isNull() || covering.width() <= picture.width())
        return picture;
    return picture.scaled(covering, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

PictureProvider *PictureProvider::of(QQmlEngine *engine)
{
    return engine == nullptr ? nullptr
                             : qobject_cast<PictureProvider *>(engine->imageProvider(name()));
}

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

PictureRequest PictureProvider::request(const QString &source, const QSize &area,
                                        double radiusShare) const
{
    const QString id = source.mid(QStringLiteral("image://picture/").size());
    return {.key = QStringLiteral("%1 %2x%3 %4")
                       .arg(source)
                       .arg(area.width())
                       .arg(area.height())
                       .arg(radiusShare),
            .make = [bytes = m_pictures.bytes(id), area, radiusShare] {
                const QImage picture = enlarged(decodedPicture(bytes, area), area);
                return radiusShare > 0 ? roundedPicture(picture, radiusShare) : picture;
            }};
}

QImage decodedPicture(const QByteArray &bytes, const QSize &size)
{
    QImage image = imageFromBytes(bytes);
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
