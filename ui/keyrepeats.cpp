#include "ui/keyrepeats.h"

#include <QCoreApplication>
#include <QKeyEvent>

KeyRepeats::KeyRepeats(QObject *parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeyRepeats::isMistaken(const QKeyEvent &press) const
{
    return !press.isAutoRepeat() && press.timestamp() != 0 && press.key() == m_releasedKey
        && press.timestamp() == m_releaseTime;
}

bool KeyRepeats::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWindowType())
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyRelease) {
        const auto *const release = static_cast<QKeyEvent *>(event);
        m_releasedKey = release->key();
        m_releaseTime = release->timestamp();
    } else if (event->type() == QEvent::KeyPress) {
        const auto *const press = static_cast<QKeyEvent *>(event);
        if (isMistaken(*press)) {
            QKeyEvent repeat(QEvent::KeyPress, press->key(), press->modifiers(),
                             press->nativeScanCode(), press->nativeVirtualKey(),
                             press->nativeModifiers(), press->text(), true);
            repeat.setTimestamp(press->timestamp());
            QCoreApplication::sendEvent(watched, &repeat);
            event->setAccepted(repeat.isAccepted());
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}
