#pragma once

#include <QHash>
#include <QObject>
#include <QThreadPool>
#include <QUuid>

class CompanionStore;
class FileURL;

/// Turns the pictures that a user chooses into folders' custom icons, away from the main thread,
/// one after the other. A file that holds no picture changes nothing and says nothing.
class IconImageLoader final : public QObject {
public:
    explicit IconImageLoader(CompanionStore &store, QObject *parent = nullptr);
    ~IconImageLoader() override;

    void load(const QUuid &folderID, const FileURL &picture);
    /// The folder was given another icon: what is still being loaded for it comes too late.
    void cancel(const QUuid &folderID);

private:
    CompanionStore &m_store;
    QThreadPool m_thread;
    QHash<QUuid, int> m_cancellations;
};
