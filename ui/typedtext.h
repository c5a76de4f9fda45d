#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// Tells what a key types from what it commands.
class TypedText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Whether a key press with that text and those Qt::KeyboardModifiers types something that is
    /// seen, or a blank. Escape and Backspace have texts, too.
    Q_INVOKABLE [[nodiscard]] static bool isTyped(const QString &text, int modifiers);
};
