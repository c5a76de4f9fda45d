#pragma once

#include "platform/error.h"
#include "platform/fileurl.h"

#include <QImage>
#include <QList>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

enum class Activation {
    Background, ///< the opened application does not take the focus
    Foreground,
};

/// The user's workspace: applications, documents and their icons.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Where an application with that bundle identifier is installed.
    [[nodiscard]] virtual std::optional<FileURL>
    applicationWithBundleIdentifier(const QString &bundleIdentifier) const = 0;

    /// Told once, later and on the main thread, what became of a launch: nothing, or the reason why
    /// it failed.
    using OpenCompletion = std::function<void(const std::optional<PlatformError> &)>;
    /// Launches an application bundle, or brings forward the copy that already runs.
    virtual void openApplication(const FileURL &bundle, Activation activation,
                                 OpenCompletion completion)
        = 0;

    /// Opens a web page or document with its application. Fire and forget.
    virtual void openURL(const QUrl &url) = 0;
    /// Shows files, selected, in the file manager. Fire and forget.
    virtual void reveal(const QList<FileURL> &urls) = 0;

    /// The icon of a bundle, folder or file, square, `side` pixels wide. Works off the main thread;
    /// may read the disk. A null image when there is none.
    [[nodiscard]] virtual QImage icon(const FileURL &url, int side) const = 0;
};
