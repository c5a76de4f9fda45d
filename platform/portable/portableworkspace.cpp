#include "platform/portable/portableworkspace.h"

#include "platform/portable/bundleinfo.h"
#include "platform/portable/detachedprocess.h"
#include "platform/portable/drawnicons.h"
#include "platform/portable/environment.h"
#include "platform/posix/posixfilesystem.h"
#include "platform/runningapplications.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
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
        if (const auto found = findApplication(url, identifier, levelsBelow - 1))
            return found;
    }
    return std::nullopt;
}

QString requiredText(const QVariantMap &info, const QString &key, const FileURL &bundle)
{
    const QString text = info.value(key).toString();
    if (text.isEmpty() || text.contains(u'/'))
        throw PlatformError(QStringLiteral("Could not launch “%1”: its Info.plist has no %2")
                                .arg(bundle.path(), key));
    return text;
}

FileURL executableOf(const FileURL &bundle, const QVariantMap &info)
{
    const QString name = requiredText(info, QStringLiteral("CFBundleExecutable"), bundle);
    return bundle.appendingDirectory(QStringLiteral("Contents"))
        .appendingDirectory(QStringLiteral("MacOS"))
        .appendingFile(name);
}

// The smallest picture that is large enough, else the largest: icon files hold several.
QImage bestPicture(const FileURL &file, int side)
{
    QImageReader reader(file.path());
    QImage best;
    for (int index = 0; index < std::max(reader.imageCount(), 1); ++index) {
        if (index > 0 && !reader.jumpToImage(index))
            continue;
        const QImage image = reader.read();
        const bool isBetter = best.width() < side
            ? image.width() > best.width()
            : image.width() >= side && image.width() < best.width();
        if (!image.isNull() && isBetter)
            best = image;
    }
    return best;
}

QImage fitted(const QImage &image, int side)
{
    if (image.isNull() || (image.width() == side && image.height() == side))
        return image;
    const QImage scaled = image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (scaled.width() == scaled.height())
        return scaled;
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    const QPoint corner((side - scaled.width()) / 2, (side - scaled.height()) / 2);
    const QImage source = scaled.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < source.height(); ++y) {
        const auto *from = reinterpret_cast<const QRgb *>(source.constScanLine(y));
        auto *to = reinterpret_cast<QRgb *>(square.scanLine(corner.y() + y)) + corner.x();
        std::copy_n(from, source.width(), to);
    }
    return square;
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
        if (const auto found = findApplication(directory, bundleIdentifier, 1))
            return found;
    }
    return std::nullopt;
}

void PortableWorkspace::launch(const FileURL &bundle, Activation activation) const
{
    if (!PosixFileSystem().exists(bundle))
        throw PlatformError::fromErrno(QStringLiteral("Could not launch"), bundle.path(), ENOENT);
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
    if (side <= 0 || !url.isFileURL())
        return {};
    if (isApplication(url)) {
        const std::optional<FileURL> file = bundleIconFile(url);
        const QImage picture = file ? bestPicture(*file, side) : QImage();
        return picture.isNull() ? drawnApplicationIcon(side) : fitted(picture, side);
    }
    if (PosixFileSystem().isDirectory(url))
        return drawnFolderIcon(side);
    return drawnDocumentIcon(url.pathExtension(), side);
}
