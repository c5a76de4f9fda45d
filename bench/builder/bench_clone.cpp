// Cloning a bundle of 30 MB: 400 files and 24 links.

#include "bench/ratios.h"
#include "bench/require.h"
#include "platform/posix/posixfilesystem.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <filesystem>

#include <linux/fs.h>
#include <sys/ioctl.h>

namespace {

constexpr int directoryCount = 20;
constexpr int filesPerDirectory = 20;
constexpr int linkCount = 24;
constexpr int fileSize = 30'000'000 / (directoryCount * filesPerDirectory);

QByteArray randomBytes(int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = static_cast<char>(QRandomGenerator::global()->bounded(256));
    return bytes;
}

// A tree of the bundle's shape. Bytes do not repeat, so that no volume can save on them.
QString makeBundle(const QString &path, int sizeOfFiles)
{
    for (int directory = 0; directory < directoryCount; ++directory) {
        const QString folder = QStringLiteral("%1/Contents/Resources/%2").arg(path).arg(directory);
        require(QDir().mkpath(folder));
        for (int i = 0; i < filesPerDirectory; ++i) {
            QFile file(QStringLiteral("%1/file %2").arg(folder).arg(i));
            require(file.open(QIODevice::WriteOnly)
                    && file.write(randomBytes(sizeOfFiles)) == sizeOfFiles);
        }
    }
    for (int i = 0; i < linkCount; ++i) {
        const QString link = QStringLiteral("%1/Contents/link %2").arg(path).arg(i);
        std::filesystem::create_symlink("Resources/0/file 1", link.toStdString());
    }
    return path;
}

void copyWithTool(const QString &from, const QString &to)
{
    require(QProcess::execute(QStringLiteral("cp"), {QStringLiteral("-R"), from, to}) == 0);
}

void copyWithQt(const QString &from, const QString &to)
{
    require(QDir().mkpath(to));
    const auto entries = QDir(from).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System
                                                  | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        const QString target = to + u'/' + entry.fileName();
        if (entry.isSymLink())
            require(QFile::link(entry.symLinkTarget(), target));
        else if (entry.isDir())
            copyWithQt(entry.filePath(), target);
        else
            require(QFile::copy(entry.filePath(), target));
    }
}

// Whether the volume gives a copy the blocks of the original, which is asked of it here.
bool sharesBlocks(const QString &directory)
{
    QFile original(directory + QStringLiteral("/blocks"));
    QFile copy(directory + QStringLiteral("/shared blocks"));
    require(original.open(QFile::ReadWrite) && original.write(randomBytes(fileSize)) == fileSize
            && original.flush() && copy.open(QFile::ReadWrite));
    return ::ioctl(copy.handle(), FICLONE, original.handle()) == 0;
}

void copyWithOurs(const QString &from, const QString &to)
{
    PosixFileSystem().copy(FileURL::directory(from), FileURL::directory(to));
}

void requireIdentical(const QString &a, const QString &b)
{
    require(QProcess::execute(QStringLiteral("diff"),
                              {QStringLiteral("-r"), QStringLiteral("--no-dereference"), a, b})
            == 0);
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir room;
    const bool isShared = sharesBlocks(room.path());
    std::fprintf(stderr, "On %s, which %s blocks\n",
                 QStorageInfo(room.path()).fileSystemType().constData(),
                 isShared ? "shares" : "does not share");
    const QString bundle = makeBundle(room.filePath(QStringLiteral("Bundle.app")), fileSize);
    const QString hollow = makeBundle(room.filePath(QStringLiteral("Hollow.app")), 0);

    // Every copy has a place of its own: where many files were just deleted, new ones are slow.
    int copies = 0;
    const auto place = [&] { return room.filePath(QStringLiteral("copy %1").arg(++copies)); };
    const QString first = place();
    copyWithOurs(bundle, first);
    requireIdentical(bundle, first);

    Ratios ratios;
    ratios.add({
        .name = "Clone a bundle of 30 MB, 400 files, with links",
        .ours = {.name = "clone", .run = [&] { copyWithOurs(bundle, place()); }},
        .references = {{.variant = {.name = "cp -R", .run = [&] { copyWithTool(bundle, place()); }},
                        .timesLonger = isShared ? 0.75 : 1.05},
                       {.variant = {.name = "QDir walk and QFile::copy",
                                    .run = [&] { copyWithQt(bundle, place()); }}},
                       {.variant = {.name = "the same tree with empty files",
                                    .run = [&] { copyWithOurs(hollow, place()); }}}},
        .rounds = 11,
    });
    return ratios.run(argc, argv);
}
