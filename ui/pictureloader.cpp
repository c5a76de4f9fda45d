#include "ui/pictureloader.h"

#include <QMutexLocker>
#include <QThread>

#include <algorithm>

PictureLoader::PictureLoader(qsizetype cacheBytes, QObject *parent)
    : QObject(parent)
    , m_cache(cacheBytes)
{
    // It leaves a processor to the window, and its threads, once idle, never wake up by themselves.
    constexpr int mostThreads = 3;
    m_pool.setMaxThreadCount(std::clamp(QThread::idealThreadCount() - 1, 1, mostThreads));
    m_pool.setExpiryTimeout(-1);
}

PictureLoader::~PictureLoader()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_queue.clear();
    }
    m_pool.clear();
    m_pool.waitForDone();
}

void PictureLoader::begin(const PictureRequest &request)
{
    if (m_receivers.contains(request.key))
        return;
    m_receivers.insert(request.key, {});
    enqueue(request);
}

void PictureLoader::load(const PictureRequest &request, PictureReceiver &receiver)
{
    begin(request);
    m_receivers[request.key].append(&receiver);
}

void PictureLoader::enqueue(const PictureRequest &request)
{
    const QMutexLocker lock(&m_mutex);
    m_queue.push_back(request);
    if (m_workers == m_pool.maxThreadCount())
        return;
    ++m_workers;
    m_pool.start([this] { work(); });
}

void PictureLoader::withdraw(const QString &key, PictureReceiver &receiver)
{
    if (key == m_servedKey)
        m_served.removeOne(&receiver);
    const auto found = m_receivers.find(key);
    if (found == m_receivers.end())
        return;
    found->removeOne(&receiver);
    if (!found->isEmpty())
        return;
    const QMutexLocker lock(&m_mutex);
    // What has begun is finished, and remembered for the next who asks.
    if (std::erase_if(m_queue, [&](const PictureRequest &request) { return request.key == key; }))
        m_receivers.erase(found);
}

void PictureLoader::work()
{
    QMutexLocker lock(&m_mutex);
    while (!m_queue.empty()) {
        const PictureRequest request = std::move(m_queue.front());
        m_queue.pop_front();
        lock.unlock();
        const QImage picture = m_cache.findOrMake(request);
        lock.relock();
        if (m_results.empty())
            QMetaObject::invokeMethod(this, &PictureLoader::deliver, Qt::QueuedConnection);
        m_results.push_back({request.key, picture});
    }
    --m_workers;
}

void PictureLoader::deliver()
{
    std::deque<Result> results;
    {
        const QMutexLocker lock(&m_mutex);
        results.swap(m_results);
    }
    for (const Result &result : results) {
        m_servedKey = result.key;
        m_served = m_receivers.take(result.key);
        while (!m_served.isEmpty())
            m_served.takeFirst()->receivePicture(result.picture);
    }
    m_servedKey.clear();
}
