#include "platform/qt/imagebytes.h"

#include <QBuffer>
#include <QImageReader>

namespace {

// Empty: another than the usual kinds.
QByteArray usualFormat(const QByteArray &bytes)
{
    if (bytes.startsWith("\x89PNG"))
        return QByteArrayLiteral("png");
    if (bytes.startsWith("\xFF\xD8\xFF"))
        return QByteArrayLiteral("jpeg");
    return {};
}

} // namespace

QImage imageFromBytes(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    const QByteArray format = usualFormat(bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(format.isEmpty());
    reader.setAutoTransform(true);
    return reader.read();
}
