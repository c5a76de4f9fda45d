#pragma once

#include <QImage>
#include <QQuickImageResponse>
#include <QThreadPool>

#include <functional>
#include <memory>

/// The answer to one request of an image provider: made by a pool's thread, unless it is cancelled
/// before its turn. A null picture is a failure.
class PictureResponse final : public QQuickImageResponse {
    Q_OBJECT

public:
    /// `make` is called at most once, on a thread of the pool.
    PictureResponse(QThreadPool &pool, std::function<QImage()> make);
    ~PictureResponse() override;

    [[nodiscard]] QQuickTextureFactory *textureFactory() const override;
    [[nodiscard]] QString errorString() const override;
    void cancel() override;

private:
    struct Shared; ///< with the pool: whoever of the two ends first
    std::shared_ptr<Shared> m_shared;
};

/// Makes a pool that works behind the scenes: it leaves a processor to the window, and its threads,
/// once idle, never wake up by themselves.
void setUpForPictures(QThreadPool &pool);
