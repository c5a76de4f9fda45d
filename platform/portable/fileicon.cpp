#include "platform/portable/fileicon.h"

#include "platform/portable/bundleinfo.h"
#include "platform/portable/drawnicons.h"
#include "platform/portable/iconfile.h"
#include "platform/posix/posixfilesystem.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

namespace {

bool hasExtension(const FileURL &url, QLatin1StringView extension)
{
    return url.pathExtension().compare(extension, Qt::CaseInsensitive) == 0;
}

QImage fitted(const QImage &picture, int side)
{
    if (picture.isNull() || picture.size() == QSize(side, side))
        return picture;
    QImage scaled = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                        .scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (scaled.width() == scaled.height())
        return scaled;
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    painter.drawImage((side - scaled.width()) / 2, (side - scaled.height()) / 2, scaled);
    return square;
}

// What a bundle's Info.plist names, or what the user gave a folder: a file "Icon" and a return.
QImage ownIcon(const FileURL &directory, int side)
{
    const FileURL custom = directory.appendingFile(QStringLiteral("Icon\r"));
    if (const QImage picture = iconFilePicture(custom, side); !picture.isNull())
        return fitted(picture, side);
    const std::optional<FileURL> file = bundleIconFile(directory);
    return file ? fitted(iconFilePicture(*file, side), side) : QImage();
}

QImage directoryIcon(const FileURL &directory, int side)
{
    QImage own = ownIcon(directory, side);
    if (!own.isNull())
        return own;
    return hasExtension(directory, QLatin1StringView("app")) ? drawnApplicationIcon(side)
                                                             : drawnFolderIcon(side);
}

QImage smallPrint(const FileURL &file, int side)
{
    if (!isShowablePicture(file.lastPathComponent()) || !isQuicklyRead(file))
        return {};
    QImageReader reader(file.path());
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.width() > 2 * side && size.height() > 2 * side) // spares decoding all of it, at times
        reader.setScaledSize(
            size.scaled(2 * side, 2 * side, Qt::KeepAspectRatioByExpanding).expandedTo({1, 1}));
    const QImage picture = reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return {};
    return drawnThumbnail(picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation),
                          side);
}

DocumentKind kindOf(const FileURL &file)
{
    const DocumentKind kind = documentKind(file.lastPathComponent());
    const bool isProgram = kind == DocumentKind::Plain && file.pathExtension().isEmpty()
        && QFileInfo(file.path()).isExecutable();
    return isProgram ? DocumentKind::Program : kind;
}

QImage documentIcon(const FileURL &file, int side)
{
    if (hasExtension(file, QLatin1StringView("icns"))) {
        if (const QImage picture = iconFilePicture(file, side); !picture.isNull())
            return fitted(picture, side);
    }
    const QImage print = smallPrint(file, side);
    return print.isNull() ? drawnDocumentIcon(kindOf(file), file.pathExtension(), side) : print;
}

} // namespace

QImage fileIcon(const FileURL &url, int side)
{
    const PosixFileSystem files;
    if (!files.exists(url))
        return drawnDocumentIcon(DocumentKind::Plain, {}, side);
    return files.isDirectory(url) ? directoryIcon(url, side) : documentIcon(url, side);
}
