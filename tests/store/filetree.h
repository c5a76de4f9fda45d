#pragma once

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QStringList>

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

/// What lies below a folder: by relative path the mode of each entry and, but for folders, its
/// size, its time and where it leads to. Entries with a name in `without` are left out, whatever
/// they hold too.
using FileTree = QMap<QString, QString>;

/// A link's own text; Qt makes relative ones absolute.
inline QString linkText(const QString &path)
{
    return QString::fromStdString(
        std::filesystem::read_symlink(QFile::encodeName(path).toStdString()).string());
}

inline FileTree fileTree(const QString &root, const QStringList &without = {})
{
    FileTree tree;
    QDirIterator entries(root,
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QString below = path.sliced(root.size() + 1);
        struct stat status { };
        const QStringList names = below.split(u'/');
        const auto isLeftOut = [&](const QString &name) { return names.contains(name); };
        if (std::ranges::any_of(without, isLeftOut)
            || ::lstat(QFile::encodeName(path).constData(), &status) < 0)
            continue;
        QString text = QString::number(status.st_mode, 8);
        if (!S_ISDIR(status.st_mode)) {
            text += QStringLiteral(" %1 %2.%3 %4")
                        .arg(status.st_size)
                        .arg(status.st_mtim.tv_sec)
                        .arg(status.st_mtim.tv_nsec)
                        .arg(S_ISLNK(status.st_mode) ? linkText(path) : QString());
        }
        tree.insert(below, text);
    }
    return tree;
}

/// The paths that only one of the trees has, or that are not the same in both.
inline QStringList differences(const FileTree &one, const FileTree &other)
{
    QStringList paths;
    for (auto entry = one.cbegin(); entry != one.cend(); ++entry) {
        if (other.value(entry.key()) != entry.value())
            paths.append(entry.key());
    }
    for (auto entry = other.cbegin(); entry != other.cend(); ++entry) {
        if (!one.contains(entry.key()))
            paths.append(entry.key());
    }
    return paths;
}
