#pragma once

#include "sandbox/common/standinmac.h"

#include <QList>
#include <QString>

/// A process of a stand-in Mac.
struct StandInProcess {
    qint64 processID{};
    QString executable{}; ///< its path, also after the file was deleted
    bool operator==(const StandInProcess &) const = default;
};

/// The processes that run now from a bundle of the stand-in and in its environment.
[[nodiscard]] QList<StandInProcess> standInProcesses(const StandInMac &mac);

/// Whether a process does something of its own when a signal comes, so that it may be sent.
[[nodiscard]] bool handlesSignal(qint64 processID, int signal);

/// The value of a variable in the environment a process was started with; empty when there is none.
[[nodiscard]] QString environmentOfProcess(qint64 processID, const QByteArray &variable);
