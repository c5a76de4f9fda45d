#pragma once

#include <QHash>
#include <QImage>
#include <QMutex>
#include <QQuickImageProvider>

/// Icons for QML: "image://icons/file/<escaped path>" reads that of a file, and
/// "image://icons/picture/<name>/<revision>" is one that was handed in.
class IconProvider final : public QQuickImageProvider {
public:
    IconProvider();

    [[nodiscard]] static QString sourceForFile(const QString &path);
    /// Keeps a picture and says how to ask for it; the answer differs when the picture does.
    [[nodiscard]] QString sourceForPicture(const QString &name, const QImage &picture);

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

private:
    struct Picture {
        QImage image{};
        int revision{};
    };

    [[nodiscard]] QImage picture(const QString &name, int side) const;

    mutable QMutex m_mutex; ///< images are asked for on a thread of their own
    QHash<QString, Picture> m_pictures;
};
