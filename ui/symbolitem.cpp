#include "ui/symbolitem.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>

namespace {

// The side of the square that a symbol stands in, in points: about the system's, and even, so that
// it can stand in the middle of an even space.
qreal boxSide(qreal pointSize)
{
    return 2 * std::round(pointSize * 0.65);
}

// Pixels for the widest and boldest symbol, as many more than the item has on each side as on the
// other.
int imageSide(qreal pointSize, qreal itemSide, qreal pixelRatio)
{
    const int needed = static_cast<int>(std::ceil(1.6 * pointSize * pixelRatio));
    const int available = qRound(itemSide * pixelRatio);
    return needed + (needed + available) % 2;
}

// Keeps a symbol that stands between two pixels from being drawn half on the one, half on the
// other.
constexpr qreal nudge = 1.0 / 64;

} // namespace

SymbolItem::SymbolItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    setSmooth(false); // wherever it stands, pixel on pixel
    setImplicitSize(boxSide(m_look.pointSize), boxSide(m_look.pointSize));
}

void SymbolItem::setName(const QString &name)
{
    if (m_name == name)
        return;
    m_name = name;
    polish();
    Q_EMIT nameChanged();
}

void SymbolItem::setPointSize(qreal pointSize)
{
    if (qFuzzyCompare(m_look.pointSize, pointSize))
        return;
    m_look.pointSize = pointSize;
    setImplicitSize(boxSide(pointSize), boxSide(pointSize));
    polish();
    Q_EMIT pointSizeChanged();
}

void SymbolItem::setWeight(int weight)
{
    if (m_look.weight == weight)
        return;
    m_look.weight = static_cast<QFont::Weight>(weight);
    polish();
    Q_EMIT weightChanged();
}

void SymbolItem::setColor(const QColor &color)
{
    if (m_look.color == color)
        return;
    m_look.color = color;
    polish();
    Q_EMIT colorChanged();
}

void SymbolItem::setSecondaryColor(const QColor &color)
{
    if (m_look.secondaryColor == color)
        return;
    m_look.secondaryColor = color;
    polish();
    Q_EMIT secondaryColorChanged();
}

void SymbolItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void SymbolItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    const bool isToBeDrawn = change == ItemDevicePixelRatioHasChanged
        || (change == ItemSceneChange && value.window)
        || (change == ItemVisibleHasChanged && value.boolValue);
    if (isToBeDrawn)
        polish();
}

QSize SymbolItem::imageSize() const
{
    return {imageSide(m_look.pointSize, width(), m_look.pixelRatio),
            imageSide(m_look.pointSize, height(), m_look.pixelRatio)};
}

// Here, so that several changes between two frames are drawn once, and hidden symbols never.
void SymbolItem::updatePolish()
{
    if (!window() || !isVisible())
        return;
    m_look.pixelRatio = window()->effectiveDevicePixelRatio();
    m_image = symbolImage(m_name, m_look, imageSize());
    if (m_image.isNull() && !m_name.isEmpty())
        m_image = symbolImage(QStringLiteral("questionmark.square"), m_look, imageSize());
    m_isImageNew = true;
    update();
}

QSGNode *SymbolItem::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    if (m_image.isNull()) {
        delete oldNode;
        return nullptr;
    }
    auto *node = static_cast<QSGImageNode *>(oldNode);
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        m_isImageNew = true;
    }
    if (m_isImageNew) {
        node->setTexture(
            window()->createTextureFromImage(m_image, QQuickWindow::TextureCanUseAtlas));
        m_isImageNew = false;
    }
    const QSizeF size = m_image.deviceIndependentSize();
    node->setRect((width() - size.width()) / 2 + nudge, (height() - size.height()) / 2 + nudge,
                  size.width(), size.height());
    node->setFiltering(smooth() ? QSGTexture::Linear : QSGTexture::Nearest);
    return node;
}
