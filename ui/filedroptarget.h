#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

struct FolderRowDropDelegate;

/// An area that takes files from other programs: the one place where the toolkit's drag events meet
/// the drop handlers.
class FileDropTarget : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool isTargeted READ isTargeted NOTIFY isTargetedChanged)

public:
    explicit FileDropTarget(QQuickItem *parent = nullptr);

    /// Whether a drag that would be accepted hovers over the area.
    [[nodiscard]] bool isTargeted() const { return m_isTargeted; }

Q_SIGNALS:
    void isTargetedChanged();
    /// Texts of file URLs; at least one.
    void dropped(const QStringList &urls);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    [[nodiscard]] FolderRowDropDelegate handler();
    void setTargeted(bool isTargeted);

    bool m_isTargeted = false;
};
