#pragma once

#include "model/base64bytes.h"

#include <QHash>
#include <QString>
#include <QUuid>

struct DockFolder;

/// The pictures that folders were given, where the window finds them: what a FolderPicture gets as
/// its source names an entry here. The bytes are the library's own, shared, not copied; they are
/// decoded only when an item comes into view, at the size it is shown at (see PictureProvider).
/// Main thread only. Outlives the QML engine.
class PictureStore {
public:
    /// The source for a FolderPicture that shows the folder's picture: the folder's id and a number
    /// behind a slash; empty when it has none. It stays the same while the picture does, and no
    /// other picture ever has it. Cheap: to be called for each folder whenever the folders change.
    [[nodiscard]] QString pictureSource(const DockFolder &folder);
    /// Lets go of the pictures of all folders but these: to be called when folders may have gone.
    void keepOnly(const QList<DockFolder> &folders);

    /// The newest picture of the folder that a source names.
    [[nodiscard]] Base64Bytes picture(QStringView source) const;

private:
    struct Picture {
        Base64Bytes bytes{};
        QString source{};
    };

    QHash<QUuid, Picture> m_pictures;
    quint64 m_version{}; ///< never used twice, so that no cache can mistake a picture for another
};
