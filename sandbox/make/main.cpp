#include "sandbox/common/files.h"
#include "sandbox/common/standinmac.h"
#include "sandbox/make/standinmaker.h"

#include "platform/error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace {

constexpr int wrongUsage = 2;

void say(const QString &text, FILE *stream = stdout)
{
    std::fputs((text + u'\n').toUtf8().constData(), stream);
}

QString partsDirectory()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath()
                           + QStringLiteral("/../sandbox/parts"));
}

// Made beside its place and moved there when it is whole, so that one that was interrupted is never
// taken for a stand-in.
void makeNew(const QString &root)
{
    const QString unfinished = root + u".unfinished";
    if (QFileInfo::exists(unfinished) && !QDir(unfinished).removeRecursively())
        throw PlatformError(QStringLiteral("Could not remove “%1”").arg(unfinished));
    makeDirectories(unfinished);
    StandInMaker(unfinished, root, partsDirectory()).make();
    writeFile(StandInMac(unfinished).marker(), QByteArrayLiteral("A stand-in Mac\n"));
    QDir().rmdir(root); // empty, when it is there
    if (!QDir().rename(unfinished, root))
        throw PlatformError(QStringLiteral("Could not create “%1”").arg(root));
}

// The root as the kernel will name it, though it may not exist yet.
QString finalPath(const QString &argument)
{
    const QFileInfo info(QDir::cleanPath(QFileInfo(argument).absoluteFilePath()));
    const QString parent = info.path();
    makeDirectories(parent);
    return info.exists() ? info.canonicalFilePath()
                         : QFileInfo(parent).canonicalFilePath() + u'/' + info.fileName();
}

void make(const QString &root, bool refresh)
{
    const QFileInfo info(root);
    if (QFileInfo::exists(StandInMac(root).marker())) {
        if (refresh)
            StandInMaker(root, root, partsDirectory()).writePrograms();
        say(root + (refresh ? u": programs renewed" : u": is a stand-in Mac already"));
        return;
    }
    if (info.exists()
        && (!info.isDir()
            || !QDir(root).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System
                                   | QDir::NoDotAndDotDot)))
        throw PlatformError(root + u": is not empty and no stand-in Mac; nothing was done");
    makeNew(root);
    say(root + u": is a stand-in Mac now");
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().sliced(1);
    const bool refresh = arguments.removeAll(QStringLiteral("--refresh")) > 0;
    if (arguments.size() != 1 || arguments.first().startsWith(u'-')) {
        say(QStringLiteral(
                "usage: sandbox-make [--refresh] DIR\n"
                "Fills DIR as a new stand-in Mac; with --refresh, renews the programs of "
                "one that is there."),
            stderr);
        return wrongUsage;
    }
    try {
        make(finalPath(arguments.first()), refresh);
    } catch (const Error &error) {
        say(error.description(), stderr);
        return 1;
    }
    return 0;
}
