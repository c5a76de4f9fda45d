#include "platform/portable/portableworkspace.h"

#include "platform/portable/bundleinfo.h"
#include "platform/portable/detachedprocess.h"
#include "platform/portable/environment.h"
#include "platform/portable/fileicon.h"
#include "platform/posix/posixfilesystem.h"
#include "platform/runningapplications.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>

namespace {

bool isApplication(const FileURL &url)
{
    return url.pathExtension() == u"app";
}

QList<FileURL> listing(const FileURL &directory)
{
    QList<FileURL> urls;
    ignoringErrors([&] { urls = PosixFileSystem().contents(directory); });
    return urls;
}

std::optional<FileURL> findApplication(const FileURL &directory, const QString &identifier,
                                       int levelsBelow)
{
    const QList<FileURL> entries = listing(directory);
    for (const FileURL &url : entries) {
        if (isApplication(url) && hasBundleIdentifier(url, identifier))
            return url;
    }
    for (const FileURL &url : entries) {
        if (levelsBelow == 0 || isApplication(url) || !url.hasDirectoryPath())
            continue;
        if (auto found = findApplication(url, identifier, levelsBelow - 1))
            return found;
    }
    return std::nullopt;
}

QString requiredText(const QVariantMap &info, const QString &key, const FileURL &bundle)
{
    QString text = info.value(key).toString();
    if (text.isEmpty() || text.contains(u'/'))
        throw PlatformError(
            PlatformError::Action::Launch, bundle.path(),
            QCoreApplication::translate("PlatformError", "its Info.plist has no %1").arg(key));
    return text;
}

FileURL executableOf(const FileURL &bundle, const QVariantMap &info)
{
    const QString name = requiredText(info, QStringLiteral("CFBundleExecutable"), bundle);
    return bundle.appendingDirectory(QStringLiteral("Contents"))
        .appendingDirectory(QStringLiteral("MacOS"))
        .appendingFile(name);
}

// Where a desktop is there to ask.
void openOnDesktop(const QString &target)
{
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        return;
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty())
        return;
    ignoringErrors([&] {
        startDetached({.path = opener.toUtf8(),
                       .arguments = {target.toUtf8()},
                       .environment = environmentWith({})},
                      Streams::Silent);
    });
}

} // namespace

std::optional<FileURL>
PortableWorkspace::applicationWithBundleIdentifier(const QString &bundleIdentifier) const
{
    if (bundleIdentifier.isEmpty())
        return std::nullopt;
    for (const QString &folder :
         {QStringLiteral("/Applications"), QStringLiteral("/System/Applications"),
          QStringLiteral("/Users/me/Applications")}) {
        const FileURL directory = FileURL::directory(m_root + folder);
        if (auto found = findApplication(directory, bundleIdentifier, 1))
            return found;
    }
    return std::nullopt;
}

void PortableWorkspace::launch(const FileURL &bundle, Activation activation) const
{
    if (!PosixFileSystem().exists(bundle))
        throw PlatformError::fromErrno(PlatformError::Action::Launch, bundle.path(), ENOENT);
    const QVariantMap info = readBundleInfo(bundle);
    const FileURL executable = executableOf(bundle, info);
    const QString identifier = requiredText(info, QStringLiteral("CFBundleIdentifier"), bundle);
    if (!m_applications.withBundleIdentifier(identifier).isEmpty())
        return;
    const QByteArray activates = activation == Activation::Foreground ? "1" : "0";
    startDetached({.path = executable.nativePath(),
                   .environment = environmentWith({{rootVariable, m_root.toUtf8()},
                                                   {identifierVariable, identifier.toUtf8()},
                                                   {activatesVariable, activates}})},
                  Streams::Silent);
}

void PortableWorkspace::openApplication(const FileURL &bundle, Activation activation,
                                        OpenCompletion completion)
{
    std::optional<PlatformError> failure;
    try {
        launch(bundle, activation);
    } catch (const PlatformError &error) { // it goes on to the caller, but later
        failure = error;
    }
    QMetaObject::invokeMethod(
        &m_context,
        [completion = std::move(completion), failure] {
            if (completion)
                completion(failure);
        },
        Qt::QueuedConnection);
}

void PortableWorkspace::note(const QString &line) const
{
    const QString folder = m_root + QStringLiteral("/private/var/log");
    QDir().mkpath(folder);
    QFile log(folder + QStringLiteral("/open.log"));
    if (log.open(QIODevice::Append | QIODevice::Unbuffered))
        log.write(line.toUtf8() + '\n');
}

void PortableWorkspace::openURL(const QUrl &url)
{
    const QString text = QString::fromLatin1(url.toEncoded());
    note(QStringLiteral("open ") + text);
    openOnDesktop(text);
}

void PortableWorkspace::reveal(const QList<FileURL> &urls)
{
    for (const FileURL &url : urls)
        note(QStringLiteral("reveal ") + url.text());
    if (!urls.isEmpty())
        openOnDesktop(urls.constFirst().deletingLastPathComponent().text());
}

QImage PortableWorkspace::icon(const FileURL &url, int side) const
{
    return side > 0 && url.isFileURL() ? fileIcon(url, side) : QImage();
}
