#include "platform/portable/iconfile.h"

#include "platform/portable/iconplanes.h"
#include "platform/qt/imagebytes.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

constexpr qint64 headerLength = 8; // a type of four characters and the length of the whole

struct Element {
    QByteArray type{};
    qint64 start{}; ///< of the content
    qint64 length{};
    int side{}; ///< of the picture it holds; 0: none that is known here
};

struct PlaneType {
    QByteArrayView type;
    int side;
    QByteArrayView mask; ///< type of the element with the opacity; empty: it is in the same one
};

// Pictures that are kept as planes of bytes. All others say themselves what they are.
constexpr std::array planeTypes{PlaneType{"is32", 16, "s8mk"}, PlaneType{"il32", 32, "l8mk"},
                                PlaneType{"ih32", 48, "h8mk"}, PlaneType{"it32", 128, "t8mk"},
                                PlaneType{"ic04", 16, {}},     PlaneType{"ic05", 32, {}},
                                PlaneType{"icsb", 18, {}},     PlaneType{"icsB", 36, {}}};

// Pictures in a fixed palette, from before there were others.
constexpr std::array<QByteArrayView, 10> paletteTypes{"ICN#", "icm#", "icm4", "icm8", "ics#",
                                                      "ics4", "ics8", "icl4", "icl8", "ich8"};

const PlaneType *planeType(QByteArrayView type)
{
    const auto *const found = std::ranges::find(planeTypes, type, &PlaneType::type);
    return found == planeTypes.end() ? nullptr : found;
}

quint32 bigEndian(const char *bytes)
{
    return qFromBigEndian<quint32>(bytes);
}

QByteArray bytesAt(QFile &file, qint64 start, qint64 length)
{
    return file.seek(start) ? file.read(length) : QByteArray();
}

// Without decoding it.
int sideOf(QFile &file, const Element &element)
{
    constexpr qint64 widthPlace = 16;
    const QByteArray front = bytesAt(file, element.start, widthPlace + 4);
    if (front.size() == widthPlace + 4 && front.startsWith("\x89PNG"))
        return static_cast<int>(
            std::min<quint32>(bigEndian(front.constData() + widthPlace), 1U << 15));
    const PlaneType *const type = planeType(element.type);
    return type == nullptr ? 0 : type->side;
}

bool isIconFile(QFile &file)
{
    return bytesAt(file, 0, headerLength).startsWith("icns");
}

// Empty when it is no icon file. Those of applications have about a dozen.
QList<Element> elementsOf(QFile &file)
{
    const QByteArray header = bytesAt(file, 0, headerLength);
    if (header.size() < headerLength || !isIconFile(file))
        return {};
    const qint64 end = std::min<qint64>(bigEndian(header.constData() + 4), file.size());
    constexpr int mostElements = 256;
    QList<Element> elements;
    for (qint64 next = headerLength;
         next + headerLength <= end && elements.size() < mostElements;) {
        const QByteArray front = bytesAt(file, next, headerLength);
        if (front.size() < headerLength)
            break;
        const qint64 length = bigEndian(front.constData() + 4);
        if (length < headerLength || next + length > end)
            break;
        elements.append(
            {.type = front.left(4), .start = next + headerLength, .length = length - headerLength});
        elements.last().side = sideOf(file, elements.constLast());
        next += length;
    }
    return elements;
}

QByteArray contentOf(QFile &file, const QList<Element> &elements, QByteArrayView type)
{
    const auto found = std::ranges::find(elements, type, &Element::type);
    return found == elements.end() ? QByteArray() : bytesAt(file, found->start, found->length);
}

QImage pictureOf(QFile &file, const QList<Element> &elements, const Element &element)
{
    const QByteArray content = bytesAt(file, element.start, element.length);
    const PlaneType *const type = planeType(element.type);
    if (type == nullptr || content.startsWith("\x89PNG"))
        return imageFromBytes(content);
    if (type->mask.isEmpty())
        return imageFromPlanes(content, type->side);
    return imageFromPlanes(content, contentOf(file, elements, type->mask), type->side);
}

bool holdsPalettePicture(const QList<Element> &elements)
{
    return std::ranges::any_of(elements, [](const Element &element) {
        return std::ranges::find(paletteTypes, element.type) != paletteTypes.end();
    });
}

// The most suitable first.
void sortForSide(QList<Element> &elements, int side)
{
    const auto isBetter = [side](const Element &a, const Element &b) {
        if ((a.side >= side) != (b.side >= side))
            return a.side >= side;
        return a.side >= side ? a.side < b.side : a.side > b.side;
    };
    std::stable_sort(elements.begin(), elements.end(), isBetter);
}

} // namespace

bool isQuicklyRead(const FileURL &file)
{
    constexpr qint64 mostBytes = 40'000'000;
    const QFileInfo info(file.path());
    return info.isFile() && info.size() <= mostBytes;
}

QImage iconFilePicture(const FileURL &file, int side)
{
    if (!isQuicklyRead(file))
        return {};
    QFile device(file.path());
    if (!device.open(QIODevice::ReadOnly))
        return {};
    const QList<Element> elements = elementsOf(device);
    QList<Element> pictures = elements;
    pictures.removeIf([](const Element &element) { return element.side == 0; });
    sortForSide(pictures, side);
    for (const Element &element : pictures) {
        QImage picture = pictureOf(device, elements, element);
        if (!picture.isNull())
            return picture;
    }
    if (isIconFile(device) && !holdsPalettePicture(elements))
        return {}; // the toolkit's own reader is chatty about damaged ones
    device.seek(0);
    return QImageReader(&device).read();
}
