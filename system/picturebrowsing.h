#pragma once

#include "platform/fileurl.h"

#include <QList>
#include <QStringList>

#include <optional>

class Directories;
class FileSystem;

/// The types of the pictures that can be an icon, as uniform type identifiers.
[[nodiscard]] QStringList pictureContentTypes();
/// Whether a file's name is that of such a picture.
[[nodiscard]] bool isPictureName(const QString &name);

/// A directory to go into, or a picture to choose.
struct PictureEntry {
    FileURL id{}; ///< where it is
    QString name{};
    bool isDirectory{};
    bool operator==(const PictureEntry &) const = default;
};

/// One of the user's own directories.
struct PicturePlace {
    enum class Kind { Home, Desktop, Documents, Downloads, Pictures };
    Kind kind{};
    FileURL url{};
    bool operator==(const PicturePlace &) const = default;
};

/// What someone who looks for a picture finds at a URL.
struct PictureListing {
    enum class Outcome {
        Directory,
        Picture,
        OtherFile, ///< one that can be no icon
        Unreadable, ///< a directory whose entries the system does not tell
        Nothing, ///< not there, or not there any more
    };
    Outcome outcome = Outcome::Nothing;
    FileURL url{}; ///< of a directory: one that says so
    QList<PictureEntry> entries{}; ///< the directory's, by name as the user's language sorts it
    QList<PicturePlace> places{}; ///< those that are there, the home first
};

// Both may run on any thread, and take as long as the file system does.

[[nodiscard]] PictureListing browsePictures(const FileSystem &files, const Directories &directories,
                                            const FileURL &url);
/// Where a search begins: in `last`, where the last one ended, or else at the user's pictures, the
/// home, the root, whichever can be read.
[[nodiscard]] PictureListing browseFirstPictures(const FileSystem &files,
                                                 const Directories &directories,
                                                 const std::optional<FileURL> &last);

/// What a typed path names: an absolute one, one from the home ("~/…") or one from `directory`.
/// Nothing for a blank one.
[[nodiscard]] std::optional<FileURL> urlOfTypedPath(const QString &path, const FileURL &home,
                                                    const FileURL &directory);
