#include "ui/windowdrag.h"

#include "system/mimedropinfo.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

namespace {

bool isDrag(QEvent::Type type)
{
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
}

} // namespace

WindowDrag::WindowDrag(QObject *parent)
    : QObject(parent)
{
}

WindowDrag::~WindowDrag() = default;

void WindowDrag::setWindow(QQuickWindow *window)
{
    if (m_window == window)
        return;
    if (m_window)
        m_window->removeEventFilter(this);
    end();
    m_window = window;
    if (m_window)
        m_window->installEventFilter(this);
    Q_EMIT windowChanged();
}

void WindowDrag::setBlocked(bool isBlocked)
{
    if (m_isBlocked == isBlocked)
        return;
    m_isBlocked = isBlocked;
    if (isBlocked && m_frames)
        takeAway();
    Q_EMIT isBlockedChanged();
}

// What it was over is told that it went.
void WindowDrag::takeAway()
{
    const QScopedValueRollback repeating(m_isRepeating, true);
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(m_window, &event);
    end();
}

bool WindowDrag::eventFilter(QObject *watched, QEvent *event)
{
    if (m_isRepeating)
        return QObject::eventFilter(watched, event);
    if (m_isBlocked && isDrag(event->type())) {
        event->ignore();
        return true;
    }
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
        follow(*static_cast<QDropEvent *>(event));
        break;
    case QEvent::Drop: // on what is there by now
        repeatAt(static_cast<QDropEvent *>(event)->position());
        [[fallthrough]];
    case QEvent::DragLeave:
        end();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void WindowDrag::begin()
{
    // Once everything is in its place.
    m_frames
        = connect(m_window, &QQuickWindow::afterAnimating, this, [this] { repeatAt(m_place); });
    // No movement of the mouse tells that it has gone from what it was over before.
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_window, &leave);
}

void WindowDrag::follow(const QDropEvent &event)
{
    if (!m_frames)
        begin();
    if (!m_data || m_source != event.mimeData()) { // its data are asked for once
        m_source = event.mimeData();
        m_data = std::make_unique<KeptDragData>(*m_source);
        m_carriesFiles = MimeDropInfo(m_data.get()).hasItems(DropContent::FileURL);
    }
    m_place = event.position();
    m_actions = event.possibleActions();
    m_buttons = event.buttons();
    m_modifiers = event.modifiers();
    Q_EMIT moved();
}

void WindowDrag::end()
{
    disconnect(m_frames);
    m_frames = {};
    m_source = nullptr;
    m_data.reset();
    Q_EMIT moved();
}

void WindowDrag::repeatAt(const QPointF &place)
{
    if (!m_data || !m_window)
        return;
    const QScopedValueRollback repeating(m_isRepeating, true);
    QDragMoveEvent event(place.toPoint(), m_actions, m_data.get(), m_buttons, m_modifiers);
    QCoreApplication::sendEvent(m_window, &event);
}
