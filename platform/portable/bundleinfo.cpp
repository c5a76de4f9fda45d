#include "platform/portable/bundleinfo.h"

#include "platform/error.h"
#include "platform/posix/posixfilesystem.h"
#include "platform/propertylist.h"

#include <QCoreApplication>

namespace {

FileURL contentsOf(const FileURL &bundle)
{
    return bundle.appendingDirectory(QStringLiteral("Contents"));
}

FileURL infoPlistOf(const FileURL &bundle)
{
    return contentsOf(bundle).appendingFile(QStringLiteral("Info.plist"));
}

} // namespace

QVariantMap readBundleInfo(const FileURL &bundle)
{
    const FileURL file = infoPlistOf(bundle);
    const QVariant info = parsePropertyList(PosixFileSystem().read(file), file.path());
    if (info.typeId() != QMetaType::QVariantMap)
        throw PlatformError(PlatformError::Action::Read, file.path(),
                            QCoreApplication::translate("PlatformError", "Not a dictionary"));
    return info.toMap();
}

QVariantMap bundleInfoIfReadable(const FileURL &bundle)
{
    QVariantMap info;
    ignoringErrors([&] { info = readBundleInfo(bundle); });
    return info;
}

bool hasBundleIdentifier(const FileURL &bundle, const QString &identifier)
{
    bool isMentioned = false; // spares most bundles the parsing
    ignoringErrors([&] {
        isMentioned = PosixFileSystem().read(infoPlistOf(bundle)).contains(identifier.toUtf8());
    });
    return isMentioned
        && bundleInfoIfReadable(bundle).value(QStringLiteral("CFBundleIdentifier")).toString()
        == identifier;
}

std::optional<FileURL> bundleIconFile(const FileURL &bundle)
{
    const QString name
        = bundleInfoIfReadable(bundle).value(QStringLiteral("CFBundleIconFile")).toString();
    if (name.isEmpty() || name.contains(u'/'))
        return std::nullopt;
    const FileURL resources = contentsOf(bundle).appendingDirectory(QStringLiteral("Resources"));
    const PosixFileSystem files;
    for (const QString &fileName : {name, QString(name + QStringLiteral(".icns"))}) {
        const FileURL file = resources.appendingFile(fileName);
        if (files.exists(file) && !files.isDirectory(file))
            return file;
    }
    return std::nullopt;
}
