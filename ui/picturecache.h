#pragma once

#include <QCache>
#include <QImage>
#include <QMutex>
#include <QString>

#include <functional>
#include <optional>

/// What to make, and what it is known by: requests with equal keys make equal pictures.
struct PictureRequest {
    QString key{}; ///< empty: nothing is wanted
    std::function<QImage()> make{}; ///< called on some other thread
};

/// Pictures that were made, up to a number of bytes; those not used for longest go first. Any
/// thread.
class PictureCache {
public:
    explicit PictureCache(qsizetype bytes)
        : m_pictures(bytes)
    {
    }

    /// Nothing when it is not here. A null picture is one that could not be made.
    [[nodiscard]] std::optional<QImage> find(const QString &key) const;
    /// Made now, on this thread, unless it is here.
    [[nodiscard]] QImage findOrMake(const PictureRequest &request);
    void insert(const QString &key, const QImage &picture);
    void clear();

private:
    mutable QMutex m_mutex; ///< of what follows
    QCache<QString, QImage> m_pictures;
};
