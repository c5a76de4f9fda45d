#include "ui/iconimageloader.h"

#include "builder/iconimage.h"
#include "platform/fileurl.h"
#include "store/companionstore.h"

#include <optional>

IconImageLoader::IconImageLoader(CompanionStore &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
{
    m_thread.setMaxThreadCount(1); // in the order in which they were chosen
}

IconImageLoader::~IconImageLoader()
{
    m_thread.clear();
    m_thread.waitForDone();
}

void IconImageLoader::load(const QUuid &folderID, const FileURL &picture)
{
    const int cancellations = m_cancellations.value(folderID);
    const auto finish = [this, folderID, cancellations](const std::optional<QByteArray> &image) {
        if (image && m_cancellations.value(folderID) == cancellations)
            m_store.setCustomIcon(folderID, *image);
    };
    m_thread.start([this, finish, path = picture.path()] {
        // An event of this object: it is dropped together with it.
        QMetaObject::invokeMethod(
            this, [finish, image = iconImageFromFile(path)] { finish(image); },
            Qt::QueuedConnection);
    });
}

void IconImageLoader::cancel(const QUuid &folderID)
{
    ++m_cancellations[folderID];
}
