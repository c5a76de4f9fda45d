#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// Whether the user works with the keyboard or with the pointer just now: where the focus is, is
/// shown to the former only.
class InputModality : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isKeyboard READ isKeyboard NOTIFY isKeyboardChanged)

public:
    explicit InputModality(QObject *parent = nullptr);

    [[nodiscard]] bool isKeyboard() const { return m_isKeyboard; }

Q_SIGNALS:
    void isKeyboardChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setKeyboard(bool isKeyboard);

    bool m_isKeyboard = false;
};
