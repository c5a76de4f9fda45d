#pragma once

#include "ui/dropreceiver.h"

#include <QPointer>
#include <QQuickItem>

#include <functional>

class DropInfo;

/// An area that takes drags: the one place where the toolkit's drag events meet the drop handlers.
class DropTarget : public QQuickItem {
    Q_OBJECT
    QML_ANONYMOUS
    /// Whose area it is.
    Q_PROPERTY(QString folderID MEMBER m_folderID NOTIFY folderIDChanged)
    /// Null: nobody is told.
    Q_PROPERTY(DropReceiver *receiver READ receiver WRITE setReceiver NOTIFY receiverChanged)
    Q_PROPERTY(bool isTargeted READ isTargeted NOTIFY isTargetedChanged)

public:
    explicit DropTarget(QQuickItem *parent = nullptr);

    [[nodiscard]] DropReceiver *receiver() const { return m_receiver; }
    void setReceiver(DropReceiver *receiver);
    /// Whether files that would be accepted hover over the area.
    [[nodiscard]] bool isTargeted() const { return m_isTargeted; }

Q_SIGNALS:
    void folderIDChanged();
    void receiverChanged();
    void isTargetedChanged();

protected:
    [[nodiscard]] virtual bool validateDrop(const DropInfo &info) = 0;
    virtual void dropEntered(const DropInfo &info) = 0;
    virtual void dropExited() = 0;
    virtual void performDrop(const DropInfo &info) = 0;

    void setTargeted(bool isTargeted);
    /// Tells the receiver of now about the folder of now, whenever it is called.
    [[nodiscard]] std::function<void(const QList<FileURL> &)> report() const;

    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QString m_folderID;
    QPointer<DropReceiver> m_receiver;
    bool m_carriesFiles = false; ///< the drag over the area
    bool m_isTargeted = false;
};
