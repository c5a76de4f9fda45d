#pragma once

#include "ui/picturecache.h"

#include <QQuickAsyncImageProvider>
#include <QThreadPool>

class PictureStore;
class QQmlEngine;

/// "image://picture/…": the pictures of a PictureStore, decoded off the main thread.
/// FolderPicture asks for requests here, to share a loader and what it remembers.
class PictureProvider final : public QQuickAsyncImageProvider {
    Q_OBJECT

public:
    static QString name() { return QStringLiteral("picture"); }

    /// The one of an engine; null when it has none.
    [[nodiscard]] static PictureProvider *of(QQmlEngine *engine);

    explicit PictureProvider(const PictureStore &pictures);
    /// Waits for what is being decoded; what is not yet begun is dropped.
    ~PictureProvider() override;

    QQuickImageResponse *requestImageResponse(const QString &id,
                                              const QSize &requestedSize) override;

    /// The picture of a source for so many device pixels; with round corners, when there is a
    /// radius, as a share of the width.
    [[nodiscard]] PictureRequest request(const QString &source, const QSize &area,
                                         double radiusShare) const;

private:
    const PictureStore &m_pictures;
    QThreadPool m_pool;
};

/// The picture that an image file's bytes hold, upright, scaled down, in its proportions, so that
/// it just covers `size`; as large as it is when `size` is empty. Null when it cannot be decoded.
[[nodiscard]] QImage decodedPicture(const QByteArray &bytes, const QSize &size);

/// The middle square of a picture, with round corners: their radius as a share of the side.
[[nodiscard]] QImage roundedPicture(const QImage &picture, double radiusShare);
