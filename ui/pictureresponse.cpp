#include "ui/pictureresponse.h"

#include <QMutex>
#include <QQuickTextureFactory>
#include <QThread>

#include <algorithm>

struct PictureResponse::Shared {
    QMutex mutex; ///< of what follows
    PictureResponse *response{}; ///< null: it is gone
    bool isCancelled{};
    QImage image{};
};

PictureResponse::PictureResponse(QThreadPool &pool, std::function<QImage()> make)
    : m_shared(std::make_shared<Shared>())
{
    m_shared->response = this;
    pool.start([shared = m_shared, make = std::move(make)] {
        const auto isWanted = [&] {
            const QMutexLocker lock(&shared->mutex);
            return shared->response != nullptr && !shared->isCancelled;
        };
        const QImage image = isWanted() ? make() : QImage();
        const QMutexLocker lock(&shared->mutex);
        shared->image = image;
        // The toolkit waits for it even after it has cancelled, but listens only once it has the
        // response: hence from the response's own thread.
        if (shared->response != nullptr)
            QMetaObject::invokeMethod(shared->response, &QQuickImageResponse::finished,
                                      Qt::QueuedConnection);
    });
}

PictureResponse::~PictureResponse()
{
    const QMutexLocker lock(&m_shared->mutex);
    m_shared->response = nullptr;
}

QQuickTextureFactory *PictureResponse::textureFactory() const
{
    const QMutexLocker lock(&m_shared->mutex);
    return QQuickTextureFactory::textureFactoryForImage(m_shared->image);
}

QString PictureResponse::errorString() const
{
    const QMutexLocker lock(&m_shared->mutex);
    return m_shared->image.isNull() ? QStringLiteral("The picture cannot be decoded") : QString();
}

void PictureResponse::cancel()
{
    const QMutexLocker lock(&m_shared->mutex);
    m_shared->isCancelled = true;
}

void setUpForPictures(QThreadPool &pool)
{
    constexpr int mostThreads = 3;
    pool.setMaxThreadCount(std::clamp(QThread::idealThreadCount() - 1, 1, mostThreads));
    pool.setExpiryTimeout(-1);
}
