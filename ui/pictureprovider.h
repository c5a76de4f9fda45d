#pragma once

#include <QQuickAsyncImageProvider>
#include <QThreadPool>

class PictureStore;

/// "image://picture/…": the pictures of a PictureStore, decoded off the main thread, and cut to a
/// rounded square when the source ends in a radius.
class PictureProvider final : public QQuickAsyncImageProvider {
    Q_OBJECT

public:
    static QString name() { return QStringLiteral("picture"); }

    explicit PictureProvider(const PictureStore &pictures);
    /// Waits for what is being decoded; what is not yet begun is dropped.
    ~PictureProvider() override;

    QQuickImageResponse *requestImageResponse(const QString &id,
                                              const QSize &requestedSize) override;

private:
    const PictureStore &m_pictures;
    QThreadPool m_pool;
};

/// The picture that an image file's bytes hold, upright, scaled down, in its proportions, so that
/// it just covers `size`; as large as it is when `size` is empty. Null when it cannot be decoded.
[[nodiscard]] QImage decodedPicture(const QByteArray &bytes, const QSize &size);

/// The middle square of a picture, with round corners: their radius as a share of the side.
[[nodiscard]] QImage roundedPicture(const QImage &picture, double radiusShare);
