#include "sandbox/drawing/fileicon.h"

#include "sandbox/common/appbundle.h"
#include "sandbox/drawing/appicon.h"
#include "sandbox/drawing/glyphs.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

namespace {

QImage emptyImage(int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage scaled(const QImage &image, int side)
{
    if (image.isNull() || image.width() == side)
        return image;
    return image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QRectF scaledRect(const QRectF &rect, qreal unit)
{
    return {rect.topLeft() * unit, rect.size() * unit};
}

QImage drawFolder(int side)
{
    QImage image = emptyImage(side);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const qreal unit = side / 100.0;
    painter.setBrush(QColor(0x3f9bd8));
    painter.drawRoundedRect(scaledRect({8, 18, 42, 40}, unit), 7 * unit, 7 * unit);
    painter.drawRoundedRect(scaledRect({8, 26, 84, 54}, unit), 7 * unit, 7 * unit);
    QLinearGradient front(0, 36 * unit, 0, 84 * unit);
    front.setColorAt(0, QColor(0x8fd0f8));
    front.setColorAt(1, QColor(0x55aee8));
    painter.setBrush(front);
    painter.drawRoundedRect(scaledRect({8, 35, 84, 49}, unit), 7 * unit, 7 * unit);
    return image;
}

QImage drawDocument(int side)
{
    QImage image = emptyImage(side);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF place(side * 0.05, side * 0.05, side * 0.9, side * 0.9);
    const QPainterPath shape = glyph(u"doc.fill", place);
    painter.fillPath(shape.translated(0, side * 0.015), QColor(0, 0, 0, 50));
    painter.fillPath(shape, QColor(0xf7f8fa));
    painter.strokePath(shape, QPen(QColor(0, 0, 0, 60), side * 0.01));
    return image;
}

QImage drawPlainApp(int side)
{
    return drawAppIcon({.top = QColor(0xe2e6ec),
                        .bottom = QColor(0x9aa5b4),
                        .symbol = QStringLiteral("square.grid.2x2")},
                       side);
}

QImage appIcon(const AppBundle &app, int side)
{
    const QImage own = readIconFile(app.iconFile(), side);
    return own.isNull() ? drawPlainApp(side) : own;
}

} // namespace

// How large a picture is shows only when it is read. They mostly come smallest first.
QImage readIconFile(const QString &path, int side)
{
    if (path.isEmpty())
        return {};
    QImageReader reader(path, QByteArrayLiteral("icns"));
    const int count = reader.imageCount();
    QImage best;
    for (int i = 0; i < count && best.width() < side; ++i) {
        if (!reader.jumpToImage(i))
            continue;
        if (const QImage image = reader.read(); image.width() > best.width())
            best = image;
    }
    return scaled(best, side);
}

QImage fileIcon(const QString &path, int side)
{
    if (path.endsWith(u".app", Qt::CaseInsensitive)) {
        if (const auto app = AppBundle::at(path))
            return appIcon(*app, side);
        return drawPlainApp(side);
    }
    return QFileInfo(path).isDir() ? drawFolder(side) : drawDocument(side);
}
