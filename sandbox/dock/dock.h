#pragma once

#include "sandbox/common/appbundle.h"
#include "sandbox/common/library.h"
#include "sandbox/common/processes.h"
#include "sandbox/common/standinmac.h"
#include "sandbox/scene/rowmodel.h"

#include <QHash>
#include <QObject>
#include <QQmlEngine>
#include <QTimer>

class IconProvider;

/// What the stand-in's Dock shows: the pinned applications of its preferences, then those that run.
class Dock : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(RowModel *tiles READ tiles CONSTANT)

public:
    Dock(const StandInMac &mac, IconProvider &icons, QObject *parent = nullptr);

    [[nodiscard]] RowModel *tiles() { return &m_tiles; }

    /// Launches an application or brings it forward; `anchor` is where the tile is.
    Q_INVOKABLE void open(const QString &path, int anchor);
    Q_INVOKABLE void quit(const QString &path);
    /// Keeps an application's tile for good, or no longer, and writes the preferences.
    Q_INVOKABLE void setPinned(const QString &path, bool isPinned);

private:
    /// The picture of a folder's tile, kept while the folder stays as it is.
    struct FolderIcon {
        DockFolder folder{};
        QString source{};
    };

    void readPreferences();
    void look();
    void refresh();
    [[nodiscard]] QStringList runningBundles() const;
    [[nodiscard]] Row rowFor(const QString &path, bool isPinned, bool isRunning,
                             bool isFirstRunning);
    [[nodiscard]] QString iconFor(const AppBundle &app);

    StandInMac m_mac;
    IconProvider &m_icons;
    Library m_library;
    QStringList m_pinned;
    QList<StandInProcess> m_processes;
    QHash<QUuid, FolderIcon> m_folderIcons;
    RowModel m_tiles;
    QTimer m_poll;
};
