#pragma once

#include <QObject>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

/// Keeps a Flickable from following presses of the mouse: a desktop's content is scrolled by wheel
/// and bar, and a drag in it drags what is there.
class WheelScrolling : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *target READ target WRITE setTarget NOTIFY targetChanged)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem *target() const { return m_target; }
    void setTarget(QQuickItem *target);

Q_SIGNALS:
    void targetChanged();

private:
    QQuickItem *m_target = nullptr;
};
