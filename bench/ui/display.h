#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>

/// A display and a session bus on which nothing else is shown or asked, for as long as it lives.
class Display {
public:
    Display();
    ~Display();
    Q_DISABLE_COPY_MOVE(Display)

    /// ":7"
    [[nodiscard]] const QByteArray &name() const { return m_name; }
    /// What a program needs to find both, as "NAME=value".
    [[nodiscard]] QList<QByteArray> environment() const;

private:
    QProcess m_server;
    QProcess m_bus;
    QByteArray m_name;
    QByteArray m_busAddress;
};
