#pragma once

#include "ui/picturecache.h"

#include <QHash>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QThreadPool>

#include <deque>

/// Someone who waits for a picture.
class PictureReceiver {
public:
    virtual ~PictureReceiver() = default;
    /// On the main thread. Null: it could not be made.
    virtual void receivePicture(const QImage &picture) = 0;
};

/// Makes pictures on other threads, each once, however many wait for it, and remembers them. What
/// nobody waits for any longer is not begun. Used from the main thread, but for the cache.
class PictureLoader final : public QObject {
    Q_OBJECT

public:
    explicit PictureLoader(qsizetype cacheBytes, QObject *parent = nullptr);
    /// Waits for what is being made; what is not yet begun is dropped.
    ~PictureLoader() override;

    /// What is remembered; for the makers of pictures, too, on their threads.
    [[nodiscard]] PictureCache &cache() { return m_cache; }
    [[nodiscard]] QThreadPool &pool() { return m_pool; }

    /// Has it made although nobody waits for it yet.
    void begin(const PictureRequest &request);
    /// Calls the receiver once, later, in the order of the requests as far as possible.
    void load(const PictureRequest &request, PictureReceiver &receiver);
    /// The receiver is not called any more for that key. It must say so before it goes away.
    void withdraw(const QString &key, PictureReceiver &receiver);

private:
    struct Result {
        QString key{};
        QImage picture{};
    };

    void enqueue(const PictureRequest &request);
    void work(); ///< on a thread of the pool
    void deliver();

    QHash<QString, QList<PictureReceiver *>> m_receivers; ///< of what is queued, made or to deliver
    QString m_servedKey; ///< the picture that `m_served` are being told of
    QList<PictureReceiver *> m_served; ///< one that is told may make another withdraw
    PictureCache m_cache;
    QMutex m_mutex; ///< of what follows
    std::deque<PictureRequest> m_queue;
    std::deque<Result> m_results; ///< not empty: deliver() is on its way
    int m_workers{};
    QThreadPool m_pool;
};
