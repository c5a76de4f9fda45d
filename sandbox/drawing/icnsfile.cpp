#include "sandbox/drawing/icnsfile.h"

#include <QBuffer>
#include <QtEndian>

#include <array>

namespace {

struct Size {
    QByteArrayView type;
    int side;
};

// Picture types that hold PNG data. "ic11" and "ic12" are 16 and 32 points at twice the scale.
constexpr std::array sizes{Size{"ic11", 32}, Size{"ic12", 64}, Size{"ic07", 128}, Size{"ic08", 256},
                           Size{"ic09", 512}};

QByteArray pngOf(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// A type of four characters, the length of the whole in big-endian order, the content.
QByteArray element(QByteArrayView type, const QByteArray &content)
{
    std::array<char, 4> length{};
    qToBigEndian(static_cast<quint32>(content.size() + 8), length.data());
    return type.toByteArray() + QByteArray(length.data(), length.size()) + content;
}

} // namespace

QByteArray makeIcnsFile(const std::function<QImage(int side)> &draw)
{
    QByteArray elements;
    for (const Size &size : sizes)
        elements += element(size.type, pngOf(draw(size.side)));
    return element("icns", elements);
}
