#include "ui/itemdragsource.h"

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QPixmap>
#include <QPointer>
#include <QQuickWindow>

void ItemDragSource::start(const QString &itemID, const QImage &picture, qreal pixelRatio,
                           const QPoint &hotSpot)
{
    QImage image = picture;
    image.setDevicePixelRatio(pixelRatio);
    // A drag runs events until it ends: not amid the handling of one.
    QMetaObject::invokeMethod(
        this, [=, this] { drag(itemID, image, hotSpot); }, Qt::QueuedConnection);
}

void ItemDragSource::drag(const QString &itemID, const QImage &picture, const QPoint &hotSpot)
{
    if (!QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) { // released meanwhile
        Q_EMIT ended();
        return;
    }
    const QPointer<ItemDragSource> self(this);
    auto *const content = new QMimeData;
    content->setText(itemID);
    auto *const drag = new QDrag(window());
    drag->setMimeData(content);
    drag->setPixmap(QPixmap::fromImage(picture));
    drag->setHotSpot(hotSpot);
    drag->exec(Qt::MoveAction);
    if (self) // the window may have been closed meanwhile
        Q_EMIT ended();
}
