#pragma once

#include "model/dockfolder.h"
#include "sandbox/common/standinmac.h"

#include <QObject>
#include <QTimer>

#include <optional>

class QFileSystemWatcher;

/// The library file as Nestlet and the Dock read it: never written, followed as others change it. A
/// file that cannot be read or decoded leaves what was read before.
class Library final : public QObject {
    Q_OBJECT

public:
    explicit Library(const StandInMac &mac, QObject *parent = nullptr);

    [[nodiscard]] const QList<DockFolder> &folders() const { return m_folders; }
    [[nodiscard]] std::optional<DockFolder> folder(const QUuid &id) const;

Q_SIGNALS:
    void changed();

private:
    void watch();
    void reload();

    QString m_path;
    QList<DockFolder> m_folders;
    QFileSystemWatcher *m_watcher{};
    QTimer m_settle;
};
