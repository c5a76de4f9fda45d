#pragma once

#include "platform/fileurl.h"

#include <QByteArray>
#include <QList>

class Directories;
class FileSystem;

/// Lists the application bundles in the system's, the shared and the user's Applications folders
/// and one folder below, sorted by name as the user's language does. May run on any thread;
/// unreadable folders count as empty.
[[nodiscard]] QList<FileURL> scanInstalledApplications(const FileSystem &files,
                                                       const Directories &directories);

/// Answers, at each keystroke, which of a list of applications a search text matches.
class ApplicationFilter {
public:
    ApplicationFilter() = default;
    explicit ApplicationFilter(const QList<FileURL> &applications);

    /// The positions of the applications whose name contains the text, whatever the case; all of
    /// them for an empty text.
    [[nodiscard]] QList<qsizetype> matches(const QString &searchText) const;

private:
    QByteArray m_foldedNames; ///< one after the other, each ended by a zero byte
    QList<qsizetype> m_nameEnds; ///< the offset after each one's zero byte
};
