#include "ui/dropshadow.h"

#include <QPainter>

#include <algorithm>
#include <span>
#include <vector>

namespace {

// Averages each value of a line with those around it.
void blurLine(std::span<uchar> values, qsizetype stride, int reach, std::vector<uchar> &copy)
{
    const auto count
        = static_cast<int>((static_cast<qsizetype>(values.size()) + stride - 1) / stride);
    const auto at
        = [&](int index) -> uchar & { return values[static_cast<size_t>(index * stride)]; };
    copy.resize(static_cast<size_t>(count));
    for (int index = 0; index < count; ++index)
        copy[static_cast<size_t>(index)] = at(index);
    int sum = 0;
    for (int index = 0; index < std::min(reach, count); ++index)
        sum += copy[static_cast<size_t>(index)];
    for (int index = 0; index < count; ++index) {
        if (index + reach < count)
            sum += copy[static_cast<size_t>(index) + static_cast<size_t>(reach)];
        if (index > reach)
            sum -= copy[static_cast<size_t>(index - reach - 1)];
        at(index) = static_cast<uchar>(sum / (2 * reach + 1));
    }
}

// Two passes of a box come close to a Gaussian blur, and no eye tells them apart at this size.
void blur(QImage &alpha, int radius)
{
    const int reach = std::max(1, radius / 2);
    const auto stride = alpha.bytesPerLine();
    uchar *const bits = alpha.bits();
    std::vector<uchar> copy;
    for (int pass = 0; pass < 2; ++pass) {
        for (int y = 0; y < alpha.height(); ++y)
            blurLine({bits + y * stride, static_cast<size_t>(alpha.width())}, 1, reach, copy);
        for (int x = 0; x < alpha.width(); ++x)
            blurLine({bits + x, static_cast<size_t>((alpha.height() - 1) * stride + 1)}, stride,
                     reach, copy);
    }
}

QImage shadowOf(const QImage &picture, const QSize &size, const QPoint &place,
                const DropShadow &shadow)
{
    QImage mask(size, QImage::Format_ARGB32_Premultiplied);
    mask.fill(Qt::transparent);
    {
        QPainter painter(&mask);
        painter.drawImage(place + QPoint(0, shadow.offset), picture);
    }
    mask.convertTo(QImage::Format_Alpha8);
    blur(mask, shadow.radius);
    return mask;
}

} // namespace

QImage withDropShadow(const QImage &picture, const DropShadow &shadow)
{
    if (picture.isNull())
        return {};
    const int margin = shadow.margin();
    const QPoint place(margin, margin);
    QImage result(picture.size() + QSize(2 * margin, 2 * margin),
                  QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setOpacity(shadow.opacity);
    painter.drawImage(QPoint(), shadowOf(picture, result.size(), place, shadow)); // black
    painter.setOpacity(1);
    painter.drawImage(place, picture);
    return result;
}
