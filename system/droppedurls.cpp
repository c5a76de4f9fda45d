#include "system/droppedurls.h"

#include "platform/mainthread.h"

#include <QCoreApplication>
#include <QEvent>

#include <atomic>
#include <utility>

namespace {

class DropDelivery;

/// What the loads of one drop share, on whatever threads they finish.
struct PendingLoads {
    CompanionURLCollector collector{};
    std::atomic<qsizetype> remaining{0};
    std::mutex deliveryLock{};
    DropDelivery *delivery = nullptr; ///< guarded; null once the application has gone
};

/// Waits on the main thread for the last load of a drop. It owns the completion, so that nothing
/// the completion holds is touched on another thread, and belongs to the application, so that a
/// load which never finishes, or finishes after the end, does no harm.
class DropDelivery final : public QObject {
public:
    DropDelivery(std::shared_ptr<PendingLoads> loads,
                 std::function<void(const QList<FileURL> &)> completion)
        : QObject(QCoreApplication::instance())
        , m_loads(std::move(loads))
        , m_completion(std::move(completion))
    {
        const std::lock_guard guard(m_loads->deliveryLock);
        m_loads->delivery = this;
    }
    ~DropDelivery() override
    {
        const std::lock_guard guard(m_loads->deliveryLock);
        m_loads->delivery = nullptr;
    }
    Q_DISABLE_COPY_MOVE(DropDelivery)

protected:
    // The only event that is ever posted here says that the last load has finished.
    void customEvent(QEvent *) override
    {
        requireMainThread();
        // The completion may run an event loop, and this object be gone when it returns.
        deleteLater();
        const auto completion = std::move(m_completion);
        if (const QList<FileURL> urls = m_loads->collector.snapshot(); !urls.isEmpty())
            completion(urls);
    }

private:
    std::shared_ptr<PendingLoads> m_loads;
    std::function<void(const QList<FileURL> &)> m_completion;
};

std::optional<FileURL> fileURLFromData(const std::optional<QByteArray> &data)
{
    const auto url = data ? FileURL::fromText(QString::fromUtf8(*data)) : std::nullopt;
    return url && url->isFileURL() ? url : std::nullopt;
}

void finishLoad(PendingLoads &loads, const std::optional<QByteArray> &data)
{
    if (const auto url = fileURLFromData(data))
        loads.collector.append(*url);
    if (--loads.remaining > 0)
        return;
    const std::lock_guard guard(loads.deliveryLock); // keeps the receiver alive while it is told
    if (loads.delivery)
        QCoreApplication::postEvent(loads.delivery, new QEvent(QEvent::User));
}

} // namespace

void CompanionURLCollector::append(const FileURL &url)
{
    const std::lock_guard guard(m_lock);
    m_urls.append(url);
}

QList<FileURL> CompanionURLCollector::snapshot() const
{
    const std::lock_guard guard(m_lock);
    return m_urls;
}

void collectDroppedFileURLs(const DropInfo &info,
                            std::function<void(const QList<FileURL> &)> completion)
{
    const auto providers = info.fileURLProviders();
    if (providers.isEmpty())
        return; // nothing to hand over
    const auto loads = std::make_shared<PendingLoads>();
    loads->remaining = providers.size();
    new DropDelivery(loads, std::move(completion)); // owned by the application
    for (const auto &provider : providers)
        provider->loadFileURL([loads](const auto &data) { finishLoad(*loads, data); });
}

bool FolderRowDropDelegate::validateDrop(const DropInfo &info) const
{
    return info.hasItems(DropContent::FileURL);
}

bool FolderRowDropDelegate::performDrop(const DropInfo &info) const
{
    setTargeted(false);
    collectDroppedFileURLs(info, onDrop);
    return true;
}

void FolderRowDropDelegate::dropEntered(const DropInfo &) const
{
    setTargeted(true);
}

void FolderRowDropDelegate::dropExited() const
{
    setTargeted(false);
}
