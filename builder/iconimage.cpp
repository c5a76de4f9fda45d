#include "builder/iconimage.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

namespace {

constexpr int folderIconSide = 256;
// Room for a picture of 128 million pixels, decoded; what is larger is not meant as an icon.
constexpr int allocationLimitMegabytes = 512;

QImage inStandardColors(const QImage &image)
{
    return image.colorSpace().isValid() ? image.convertedToColorSpace(QColorSpace::SRgb) : image;
}

QImage stretched(const QImage &image, int side)
{
    QImage scaled = inStandardColors(image).scaled(side, side, Qt::IgnoreAspectRatio,
                                                   Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(1);
    // Painted anew, so that neither the original's texts nor its resolution come along.
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter(&square).drawImage(0, 0, scaled);
    return square;
}

} // namespace

void allowLargePictures()
{
    QImageReader::setAllocationLimit(allocationLimitMegabytes);
}

std::optional<QByteArray> encodeIconImage(const QImage &image, int side)
{
    if (image.isNull() || side <= 0)
        return std::nullopt;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !stretched(image, side).save(&buffer, "PNG"))
        return std::nullopt;
    return bytes;
}

std::optional<QByteArray> iconImageFromFile(const QString &path)
{
    if (!QFileInfo(path).isFile()) // one could wait for ever at a pipe
        return std::nullopt;
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true); // upright, as the camera was held
    return encodeIconImage(reader.read(), folderIconSide);
}
