#include "ui/fileiconpicture.h"

#include "ui/iconprovider.h"

#include <algorithm>

namespace {

int sideOf(const QSize &area)
{
    return std::min(area.width(), area.height());
}

DropShadow shadow(qreal pixelRatio)
{
    return {.radius = qRound(4 * pixelRatio), .offset = qRound(2 * pixelRatio), .opacity = 0.15};
}

// The window's icons come in few sizes, and mostly many of one size after the other.
QImage sharedPlaceholder(int side, const QColor &color)
{
    static QColor lastColor;
    static QImage last;
    if (last.width() != side || lastColor != color) {
        last = drawnIconPlaceholder(side, color);
        lastColor = color;
    }
    return last;
}

} // namespace

FileIconPicture::FileIconPicture(QQuickItem *parent)
    : LoadedPicture(parent)
{
    connect(this, &FileIconPicture::placeholderColorChanged, this, &FileIconPicture::changed);
    connect(this, &FileIconPicture::isShadowedChanged, this, &FileIconPicture::changed);
}

void FileIconPicture::setURL(const QString &url)
{
    if (m_url == url)
        return;
    m_url = url;
    changed();
    Q_EMIT urlChanged();
}

PictureRequest FileIconPicture::request(IconProvider &icons, const QSize &area) const
{
    if (m_url.isEmpty())
        return {};
    if (m_isShadowed)
        return icons.shadowedIconRequest(m_url, sideOf(area), shadow(pixelRatio()));
    return icons.iconRequest(m_url, sideOf(area));
}

QImage FileIconPicture::placeholder(const QImage &, const QSize &area) const
{
    return sharedPlaceholder(sideOf(area), m_placeholderColor);
}
