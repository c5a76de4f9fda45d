#include "builder/infoplist.h"

#include "builder/companionerror.h"
#include "model/uuidtext.h"
#include "platform/filesystem.h"
#include "platform/propertylist.h"

#include <QLocale>

namespace {

const QString bundleIdentifierKey = QStringLiteral("CFBundleIdentifier");
const QString folderIDKey = QStringLiteral("DockFolderID");

// Nothing when the property list is no dictionary. Throws PlatformError when there is none.
std::optional<QVariantMap> dictionaryIn(const QByteArray &bytes, const QString &path)
{
    const QVariant value = parsePropertyList(bytes, path);
    if (value.typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    return value.toMap();
}

std::optional<QVariantMap> readDictionary(const FileURL &url, const FileSystem &files)
{
    return dictionaryIn(files.read(url), url.path());
}

std::optional<QVariantMap> readableInfoPlist(const FileURL &bundle, const FileSystem &files)
{
    std::optional<QVariantMap> dictionary;
    ignoringErrors([&] { dictionary = readDictionary(infoPlistURL(bundle), files); });
    return dictionary;
}

std::optional<QString> stringValue(const QVariantMap &dictionary, const QString &key)
{
    const QVariant value = dictionary.value(key);
    if (value.typeId() != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

FileURL executableURL(const FileURL &bundle, const QString &name)
{
    return bundle.appendingDirectory(QStringLiteral("Contents"))
        .appendingDirectory(QStringLiteral("MacOS"))
        .appendingFile(name);
}

// Seconds and fraction are converted apart: as one number of nanoseconds they exceed a double.
double seconds(qint64 nanoseconds)
{
    constexpr qint64 second = 1'000'000'000;
    const qint64 whole = nanoseconds / second;
    const qint64 rest = nanoseconds % second;
    return static_cast<double>(whole) + static_cast<double>(rest) / static_cast<double>(second);
}

double buildTime(const FileURL &templateApp, const QString &executable, const FileSystem &files)
{
    auto identity = files.identity(executableURL(templateApp, executable));
    if (!identity)
        identity = files.identity(templateApp);
    return identity ? seconds(identity->modificationNanoseconds) : 0;
}

// The shortest digits that read back as the same number, and always a fraction.
QString shortestText(double number)
{
    const QString text = QString::number(number, 'f', QLocale::FloatingPointShortest);
    return text.contains(u'.') ? text : text + QStringLiteral(".0");
}

} // namespace

FileURL infoPlistURL(const FileURL &bundle)
{
    return bundle.appendingFile(QStringLiteral("Contents/Info.plist"));
}

QString proxyBundleIdentifier(const QUuid &folderID)
{
    return QStringLiteral("qx.Nestlet.folder.") + folderID.toString(QUuid::Id128);
}

std::optional<QString> bundleIdentifier(const FileURL &bundle, const FileSystem &files)
{
    const auto info = readableInfoPlist(bundle, files);
    return info ? stringValue(*info, bundleIdentifierKey) : std::nullopt;
}

std::optional<QUuid> folderIDIn(const QByteArray &infoPlist)
{
    std::optional<QVariantMap> dictionary;
    ignoringErrors([&] { dictionary = dictionaryIn(infoPlist, {}); });
    const auto text = dictionary ? stringValue(*dictionary, folderIDKey) : std::nullopt;
    return text ? uuidFromText(*text) : std::nullopt;
}

std::optional<QUuid> readFolderID(const FileURL &bundle, const FileSystem &files)
{
    std::optional<QUuid> folderID;
    ignoringErrors([&] { folderID = folderIDIn(files.read(infoPlistURL(bundle))); });
    return folderID;
}

std::optional<QString> sourceStamp(const FileURL &templateApp, const FileSystem &files)
{
    const auto info = readableInfoPlist(templateApp, files);
    if (!info)
        return std::nullopt;
    const QString version
        = stringValue(*info, QStringLiteral("CFBundleVersion")).value_or(QStringLiteral("unknown"));
    const QString executable = stringValue(*info, QStringLiteral("CFBundleExecutable"))
                                   .value_or(QStringLiteral("Nestlet"));
    return version + u'-' + shortestText(buildTime(templateApp, executable, files));
}

void rewriteInfoPlist(const FileURL &proxy, const FileURL &templateApp, const DockFolder &folder,
                      const FileSystem &files)
{
    const FileURL url = infoPlistURL(proxy);
    auto info = readDictionary(url, files);
    if (!info)
        throw CompanionError(CompanionError::Kind::invalidInfoPlist, url.path());

    info->insert(QStringLiteral("CFBundleDisplayName"), folder.name);
    info->insert(QStringLiteral("CFBundleName"), folder.name);
    info->insert(bundleIdentifierKey, proxyBundleIdentifier(folder.id));
    info->insert(folderIDKey, uuidText(folder.id));
    if (const auto stamp = sourceStamp(templateApp, files))
        info->insert(QStringLiteral("NestletSourceStamp"), *stamp);
    info->insert(QStringLiteral("LSUIElement"), false);

    files.writeAtomically(url, serializePropertyList(*info, PropertyListFormat::XML));
}
