#pragma once

#include <QDropEvent>
#include <QObject>
#include <QPointer>
#include <QQuickWindow>
#include <QtQml/qqmlregistration.h>

#include <memory>

class KeptDragData;

/// A drag over a window, wherever in it that is and whether or not something there takes it.
///
/// While it is held still the system says nothing, but what lies under it may be scrolled away,
/// moved or removed: it would stay lit, and take the drop. So what takes drops is told at each
/// frame where the drag is. Under a dialog nothing takes drops.
class WindowDrag : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickWindow *window READ window WRITE setWindow NOTIFY windowChanged)
    /// A dialog is shown, which comes first.
    Q_PROPERTY(bool isBlocked READ isBlocked WRITE setBlocked NOTIFY isBlockedChanged)
    Q_PROPERTY(bool isOver READ isOver NOTIFY moved)
    /// It is over the window, and brings files.
    Q_PROPERTY(bool carriesFiles READ carriesFiles NOTIFY moved)
    /// Of the window; where it was last when there is none.
    Q_PROPERTY(QPointF place READ place NOTIFY moved)

public:
    explicit WindowDrag(QObject *parent = nullptr);
    ~WindowDrag() override;

    [[nodiscard]] QQuickWindow *window() const { return m_window; }
    void setWindow(QQuickWindow *window);
    [[nodiscard]] bool isBlocked() const { return m_isBlocked; }
    void setBlocked(bool isBlocked);
    [[nodiscard]] bool isOver() const { return m_data != nullptr; }
    [[nodiscard]] bool carriesFiles() const { return isOver() && m_carriesFiles; }
    [[nodiscard]] QPointF place() const { return m_place; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void windowChanged();
    void isBlockedChanged();
    void moved();

private:
    void begin();
    void follow(const QDropEvent &event);
    void takeAway();
    void end();
    void repeatAt(const QPointF &place);

    QPointer<QQuickWindow> m_window;
    const QMimeData *m_source = nullptr; ///< only to be compared
    std::unique_ptr<const KeptDragData> m_data; ///< its data; null: there is no drag
    bool m_carriesFiles = false;
    QPointF m_place;
    Qt::DropActions m_actions;
    Qt::MouseButtons m_buttons;
    Qt::KeyboardModifiers m_modifiers;
    QMetaObject::Connection m_frames; ///< while a drag is over the window
    bool m_isRepeating = false;
    bool m_isBlocked = false;
};
