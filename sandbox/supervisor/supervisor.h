#pragma once

#include "sandbox/common/standinmac.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QProcess>
#include <QTimer>

/// Keeps the stand-in's Dock running: starts it again when it ends, however it ends, until it is
/// told to stop or the stand-in is gone.
class Supervisor final : public QObject {
    Q_OBJECT

public:
    explicit Supervisor(const StandInMac &mac, QObject *parent = nullptr);

    void start();
    /// Ends the Dock too, then reports stopped().
    void stop();

Q_SIGNALS:
    void stopped();

private:
    void startDock();
    void dockEnded();
    void checkStandIn();

    StandInMac m_mac;
    QProcess m_dock;
    QTimer m_restart;
    QFileSystemWatcher m_watcher;
    bool m_isStopping{};
};
