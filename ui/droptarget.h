#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

class DropInfo;

/// An area that takes drags: the one place where the toolkit's drag events meet the drop handlers.
class DropTarget : public QQuickItem {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(bool isTargeted READ isTargeted NOTIFY isTargetedChanged)

public:
    explicit DropTarget(QQuickItem *parent = nullptr);

    /// Whether files that would be accepted hover over the area.
    [[nodiscard]] bool isTargeted() const { return m_isTargeted; }

Q_SIGNALS:
    void isTargetedChanged();
    /// An accepted drag is at a place of the window.
    void dragMoved(const QPointF &place);
    /// It has left the area or was dropped.
    void dragEnded();
    /// Texts of file URLs; at least one.
    void dropped(const QStringList &urls);

protected:
    [[nodiscard]] virtual bool validateDrop(const DropInfo &info) = 0;
    virtual void dropEntered(const DropInfo &info) = 0;
    virtual void dropExited() = 0;
    virtual void performDrop(const DropInfo &info) = 0;

    void setTargeted(bool isTargeted);

    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    bool m_isTargeted = false;
};
