#include "ui/inputmodality.h"

#include <QCoreApplication>
#include <QEvent>

InputModality::InputModality(QObject *parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void InputModality::setKeyboard(bool isKeyboard)
{
    if (m_isKeyboard == isKeyboard)
        return;
    m_isKeyboard = isKeyboard;
    Q_EMIT isKeyboardChanged();
}

bool InputModality::eventFilter(QObject *watched, QEvent *event)
{
    if (watched->isWindowType()) {
        if (event->type() == QEvent::KeyPress)
            setKeyboard(true);
        else if (event->type() == QEvent::MouseButtonPress)
            setKeyboard(false);
    }
    return QObject::eventFilter(watched, event);
}
