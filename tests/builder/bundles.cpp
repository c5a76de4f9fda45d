#include "bundles.h"

#include "builder/infoplist.h"
#include "platform/filesystem.h"
#include "platform/propertylist.h"

#include <QDateTime>
#include <QFile>

#include <filesystem>

namespace {

QVariantMap templateInfo()
{
    return {
        {QStringLiteral("CFBundleIdentifier"), QStringLiteral("qx.Nestlet")},
        {QStringLiteral("CFBundleName"), QStringLiteral("Nestlet")},
        {QStringLiteral("CFBundleVersion"), QStringLiteral("412")},
        {QStringLiteral("CFBundleExecutable"), QStringLiteral("Nestlet")},
        {QStringLiteral("LSUIElement"), true},
        {QStringLiteral("LSMinimumSystemVersion"), QStringLiteral("14.0")},
        {QStringLiteral("Count"), qint64(-3)},
        {QStringLiteral("Ratio"), 0.1},
        {QStringLiteral("Built"), QDateTime(QDate(2024, 5, 6), QTime(7, 8, 9), Qt::UTC)},
        {QStringLiteral("Blob"), QByteArray("\0\1\2\xff", 4)},
        {QStringLiteral("Text"), QStringLiteral("a < b & c > d “é” 🚀")},
        {QStringLiteral("List"), QVariantList{true, QStringLiteral("two"), qint64(3)}},
        {QStringLiteral("Nested"),
         QVariantMap{{QStringLiteral("DockFolderID"), QStringLiteral("inner")}}},
    };
}

} // namespace

QByteArray xml(const QByteArray &root)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">)"
        + root + "</plist>\n";
}

void writeFile(const FileURL &url, const QByteArray &bytes, const FileSystem &files)
{
    files.createDirectories(url.deletingLastPathComponent());
    files.writeAtomically(url, bytes);
}

void writeInfoPlistBytes(const FileURL &bundle, const QByteArray &bytes, const FileSystem &files)
{
    writeFile(infoPlistURL(bundle), bytes, files);
}

void writeInfoPlist(const FileURL &bundle, const QVariantMap &info, const FileSystem &files)
{
    writeInfoPlistBytes(bundle, serializePropertyList(info, PropertyListFormat::XML), files);
}

QVariantMap readInfoPlist(const FileURL &bundle, const FileSystem &files)
{
    const FileURL url = infoPlistURL(bundle);
    return parsePropertyList(files.read(url), url.path()).toMap();
}

void makeTemplateApp(const FileURL &bundle, const FileSystem &files)
{
    const auto in = [&](const char *path) {
        return bundle.appendingFile(QStringLiteral("Contents/") + QString::fromLatin1(path));
    };
    writeInfoPlist(bundle, templateInfo(), files);
    writeFile(in("MacOS/Nestlet"), "#!/bin/sh\nexit 0\n", files);
    QFile::setPermissions(in("MacOS/Nestlet").path(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup
                              | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther);
    writeFile(in("Resources/panel.txt"), "panel", files);
    writeFile(in("Frameworks/Grid.framework/Versions/A/Grid"), "code", files);
    writeFile(in("Frameworks/Grid.framework/Versions/A/Resources/Info.plist"),
              xml("<dict><key>CFBundleIdentifier</key><string>qx.Grid</string>"
                  "<key>CFBundleExecutable</key><string>Grid</string></dict>"),
              files);
    writeFile(in("_CodeSignature/CodeResources"), "seal", files);
    writeFile(in("_MASReceipt/receipt"), "receipt", files);
    writeFile(in("embedded.provisionprofile"), "profile", files);
    const std::filesystem::path framework = in("Frameworks/Grid.framework").path().toStdString();
    std::filesystem::create_directory_symlink("A", framework / "Versions" / "Current");
    std::filesystem::create_symlink("Versions/Current/Grid", framework / "Grid");
}
