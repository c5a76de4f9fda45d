#pragma once

#include "ui/picturecache.h"

#include <QObject>

class PictureStore;

/// The pictures of a PictureStore, for the items that show them: they ask for requests here and
/// give them to a loader.
class PictureProvider final : public QObject {
    Q_OBJECT

public:
    explicit PictureProvider(const PictureStore &pictures, QObject *parent = nullptr);

    /// The picture of a source for so many device pixels; with round corners, when there is a
    /// radius, as a share of the width.
    [[nodiscard]] PictureRequest request(const QString &source, const QSize &area,
                                         double radiusShare) const;

private:
    const PictureStore &m_pictures;
};

/// The picture that an image file's bytes hold, upright, scaled down, in its proportions, so that
/// it just covers `size`; as large as it is when `size` is empty. Null when it cannot be decoded.
[[nodiscard]] QImage decodedPicture(const QByteArray &bytes, const QSize &size);

/// The middle square of a picture, with round corners: their radius as a share of the side.
[[nodiscard]] QImage roundedPicture(const QImage &picture, double radiusShare);
