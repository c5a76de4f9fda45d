#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QWindow>

/// How the stand-in's windows look: dark or light, and whether the screen can show through them.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool isDark READ isDark CONSTANT)
    Q_PROPERTY(bool canBlend READ canBlend CONSTANT)
    Q_PROPERTY(QString fontFamily READ fontFamily CONSTANT)

public:
    using QObject::QObject;

    /// NESTLET_STANDIN_APPEARANCE ("dark" or "light"), else as the desktop's own colours are.
    [[nodiscard]] bool isDark() const;
    /// Whether windows may be translucent: under X11 that takes a compositing manager.
    [[nodiscard]] bool canBlend() const;
    [[nodiscard]] QString fontFamily() const;

    /// Where the screen cannot show through, cuts the window to a rounded rectangle.
    Q_INVOKABLE void roundCorners(QWindow *window, int radius) const;
};
