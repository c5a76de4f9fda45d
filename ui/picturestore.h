#pragma once

#include <QByteArray>
#include <QHash>
#include <QMutex>
#include <QString>
#include <QUuid>

struct DockFolder;

/// The pictures that folders were given, where the window finds them: what a FolderPicture, or an
/// Image, gets as its source names an entry here. The bytes are the library's own, shared, not
/// copied; they are decoded only when an image comes into view, by "image://picture" (see
/// addImageProviders), at the size it is shown at. The main thread puts in, any thread takes out.
/// Outlives the QML engine.
class PictureStore {
public:
    /// The source for an Image that shows the folder's picture; empty when it has none. It stays
    /// the same while the picture does, and no other picture ever has it. Cheap: to be called for
    /// each folder whenever the folders change. An Image needs a `sourceSize`, in window units; of
    /// a picture that cannot be decoded it warns.
    [[nodiscard]] QString pictureSource(const DockFolder &folder);
    /// Lets go of the pictures of all folders but these: to be called when folders may have gone.
    void keepOnly(const QList<DockFolder> &folders);

    /// The newest picture of the folder that a source names behind "image://picture/". Any thread.
    [[nodiscard]] QByteArray bytes(QStringView sourceID) const;

private:
    struct Picture {
        QByteArray bytes{};
        QString source{};
    };

    mutable QMutex m_mutex; ///< of what follows
    QHash<QUuid, Picture> m_pictures;
    quint64 m_version{}; ///< never used twice, so that no cache can mistake a picture for another
};
