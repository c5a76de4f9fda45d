#pragma once

#include "ui/droptarget.h"

struct CompanionItemDropDelegate;

/// The area of one cell of a folder's items. It takes files from other programs, and the folder's
/// own items while they are dragged about.
class ItemDropTarget : public DropTarget {
    Q_OBJECT
    QML_ELEMENT
    /// Where the cell stands in the folder.
    Q_PROPERTY(int targetIndex MEMBER m_targetIndex NOTIFY cellChanged)
    Q_PROPERTY(QString itemID MEMBER m_itemID NOTIFY cellChanged)
    /// The item that is being dragged about; empty: none.
    Q_PROPERTY(QString draggedItemID MEMBER m_draggedItemID NOTIFY draggedItemIDChanged)

public:
    using DropTarget::DropTarget;

Q_SIGNALS:
    void cellChanged();
    void draggedItemIDChanged();
    /// The dragged item has come over the cell.
    void moveRequested(const QString &itemID, int targetIndex);
    /// The dragged item was dropped: nothing is dragged any more.
    void itemDropped();

protected:
    [[nodiscard]] bool validateDrop(const DropInfo &info) override;
    void dropEntered(const DropInfo &info) override;
    void dropExited() override;
    void performDrop(const DropInfo &info) override;

private:
    [[nodiscard]] CompanionItemDropDelegate handler();

    int m_targetIndex = 0;
    QString m_itemID;
    QString m_draggedItemID;
};
