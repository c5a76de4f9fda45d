#include "ui/pictureprovider.h"

#include "platform/qt/imagebytes.h"
#include "ui/picturestore.h"

#include <QPainter>

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

PictureProvider::PictureProvider(const PictureStore &pictures, QObject *parent)
    : QObject(parent)
    , m_pictures(pictures)
{
}

PictureRequest PictureProvider::request(const QString &source, const QSize &area,
                                        double radiusShare) const
{
    return {.key = QStringLiteral("%1 %2x%3 %4")
                       .arg(source)
                       .arg(area.width())
                       .arg(area.height())
                       .arg(radiusShare),
            .make = [picture = m_pictures.picture(source), area, radiusShare] {
                const QImage image = enlarged(decodedPicture(picture.bytes(), area), area);
                return radiusShare > 0 ? roundedPicture(image, radiusShare) : image;
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
    painter.setBrush(QBrush(picture));
    painter.setBrushOrigin((side - picture.width()) / 2, (side - picture.height()) / 2);
    painter.drawRoundedRect(image.rect(), side * radiusShare, side * radiusShare);
    return image;
}
