#include "bench/ui/display.h"

#include "bench/require.h"

namespace {

// Starts a program that says on its first line where it is to be found.
QByteArray startAndRead(QProcess &process, const QString &program, const QStringList &arguments)
{
    constexpr int patience = 20'000;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    while (!process.canReadLine()) {
        if (!process.waitForReadyRead(patience))
            return {};
    }
    return process.readLine().trimmed();
}

void end(QProcess &process)
{
    process.terminate();
    process.waitForFinished();
}

} // namespace

// The server keeps what its first program has it find out, as that of a desktop does.
Display::Display()
    : m_name(startAndRead(
        m_server, QStringLiteral("Xvfb"),
        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
         QStringLiteral("0"), QStringLiteral("1440x1000x24"), QStringLiteral("-noreset"),
         QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-ac")}))
    , m_busAddress(startAndRead(m_bus, QStringLiteral("dbus-daemon"),
                                {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                 QStringLiteral("--nopidfile"), QStringLiteral("--print-address")}))
{
    require(!m_name.isEmpty(), "Xvfb does not start");
    require(!m_busAddress.isEmpty(), "dbus-daemon does not start");
    m_name.prepend(':');
}

Display::~Display()
{
    end(m_bus);
    end(m_server);
}

QList<QByteArray> Display::environment() const
{
    return {"DISPLAY=" + m_name, "DBUS_SESSION_BUS_ADDRESS=" + m_busAddress};
}
