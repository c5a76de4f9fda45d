#pragma once

#include "system/installedapplications.h"
#include "ui/worker.h"

#include <QFuture>
#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <functional>

/// The installed applications in the order in which they are shown, ready to be searched.
struct ApplicationList {
    QList<FileURL> urls{};
    QStringList names{}; ///< what a user calls each
    ApplicationFilter filter{};
};

/// Looks for the installed applications on a thread of its own, as often as it is asked to. Who
/// asked may be gone when the answer comes. Lives as long as what its scan uses.
class ApplicationScan final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")

public:
    using Scan = std::function<QList<FileURL>()>; ///< called on another thread; empty: finds none

    explicit ApplicationScan(Scan scan, QObject *parent = nullptr);

    [[nodiscard]] QFuture<ApplicationList> start();

private:
    Scan m_scan;
    Worker m_worker; ///< last: waits for a scan that still runs
};
