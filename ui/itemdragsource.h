#pragma once

#include <QImage>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

/// Drags an item of a folder about, by the system's own drag and drop. The drag offers the item's
/// id as plain text.
class ItemDragSource : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

public:
    using QQuickItem::QQuickItem;

    /// Begins a drag by the pressed mouse, if it still is when the drag can begin. The picture of
    /// the item, of so many pixels for each of the window's units, goes with the pointer, which
    /// holds it at `hotSpot`. `ended` follows.
    Q_INVOKABLE void start(const QString &itemID, const QImage &picture, qreal pixelRatio,
                           const QPoint &hotSpot);

Q_SIGNALS:
    /// The mouse was released or the drag was cancelled.
    void ended();

private:
    void drag(const QString &itemID, const QImage &picture, const QPoint &hotSpot);
};
