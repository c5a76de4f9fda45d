#include "ui/loadedpicture.h"

#include "ui/iconprovider.h"
#include "ui/windowengine.h"

#include <QQuickWindow>
#include <QSGImageNode>

LoadedPicture::LoadedPicture(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

LoadedPicture::~LoadedPicture()
{
    stopWaiting();
}

qreal LoadedPicture::pixelRatio() const
{
    return window() == nullptr ? 1 : window()->effectiveDevicePixelRatio();
}

void LoadedPicture::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        changed();
}

void LoadedPicture::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged
        || change == ItemVisibleHasChanged)
        changed();
}

void LoadedPicture::componentComplete()
{
    QQuickItem::componentComplete();
    changed();
}

void LoadedPicture::updatePolish()
{
    const QSize area = (size() * pixelRatio()).toSize();
    auto *const icons
        = isVisible() && !area.isEmpty() ? providerOf<IconProvider>(qmlEngine(this)) : nullptr;
    if (icons != nullptr && icons != m_icons) {
        m_icons = icons;
        connect(icons, &IconProvider::refreshed, this, &LoadedPicture::changed);
    }
    const PictureRequest wanted = icons != nullptr ? request(*icons, area) : PictureRequest();
    if (m_isWaiting && wanted.key == m_key)
        return;
    stopWaiting();
    const bool isAnother = std::exchange(m_key, wanted.key) != wanted.key;
    if (isAnother)
        setBroken(false);
    if (m_key.isEmpty()) {
        show(isVisible() && !area.isEmpty() ? placeholder(m_picture, area) : m_picture, false);
        return;
    }
    PictureLoader &loader = icons->loader();
    if (const std::optional<QImage> known = loader.cache().find(m_key)) {
        take(*known);
        return;
    }
    if (isAnother || !m_isLoaded)
        show(placeholder(m_picture, area), false);
    m_isWaiting = true;
    loader.load(wanted, *this);
}

void LoadedPicture::stopWaiting()
{
    if (m_isWaiting && m_icons)
        m_icons->loader().withdraw(m_key, *this);
    m_isWaiting = false;
}

void LoadedPicture::receivePicture(const QImage &picture)
{
    m_isWaiting = false;
    if (!m_isLoaded || picture != m_picture) // made anew, it is mostly the same
        take(picture);
}

void LoadedPicture::take(const QImage &picture)
{
    const QSize area = (size() * pixelRatio()).toSize();
    if (picture.isNull())
        show(placeholder(m_picture, area), false);
    else
        show(picture, true);
    setBroken(picture.isNull());
}

void LoadedPicture::setBroken(bool isBroken)
{
    if (std::exchange(m_isBroken, isBroken) != isBroken)
        Q_EMIT isBrokenChanged();
}

void LoadedPicture::show(const QImage &picture, bool isLoaded)
{
    const QImage previous = m_picture;
    if (picture.cacheKey() != m_picture.cacheKey()) {
        m_picture = picture;
        m_isTextureOld = true;
    }
    update();
    if (isLoaded)
        loaded(previous, picture);
    if (std::exchange(m_isLoaded, isLoaded) != isLoaded)
        Q_EMIT isLoadedChanged();
}

QSGNode *LoadedPicture::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGImageNode *>(oldNode);
    if (m_picture.isNull()) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        m_isTextureOld = true;
    }
    if (std::exchange(m_isTextureOld, false))
        node->setTexture(
            window()->createTextureFromImage(m_picture, QQuickWindow::TextureCanUseAtlas));
    // In the middle, on whole device pixels.
    const QSizeF shown = QSizeF(m_picture.size()) / pixelRatio();
    const auto middle = [ratio = pixelRatio()](qreal outer, qreal inner) {
        return std::round((outer - inner) / 2 * ratio) / ratio;
    };
    node->setRect(
        QRectF(QPointF(middle(width(), shown.width()), middle(height(), shown.height())), shown));
    return node;
}
