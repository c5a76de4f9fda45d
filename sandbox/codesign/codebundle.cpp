#include "sandbox/codesign/codebundle.h"

#include "sandbox/common/files.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {

struct Place {
    CodeBundle::Layout layout;
    QLatin1StringView sealedRoot;
    QLatin1StringView codeDirectory;
    QLatin1StringView infoPlist;
    QLatin1StringView executables;
};

// A versioned framework is sealed whole, links between its versions included.
constexpr std::array places{
    Place{CodeBundle::Layout::application, QLatin1StringView("/Contents"),
          QLatin1StringView("/Contents"), QLatin1StringView("/Contents/Info.plist"),
          QLatin1StringView("/Contents/MacOS/")},
    Place{CodeBundle::Layout::framework, QLatin1StringView(""),
          QLatin1StringView("/Versions/Current"),
          QLatin1StringView("/Versions/Current/Resources/Info.plist"),
          QLatin1StringView("/Versions/Current/")},
    Place{CodeBundle::Layout::framework, QLatin1StringView(""), QLatin1StringView(""),
          QLatin1StringView("/Resources/Info.plist"), QLatin1StringView("/")},
    Place{CodeBundle::Layout::flat, QLatin1StringView(""), QLatin1StringView(""),
          QLatin1StringView("/Info.plist"), QLatin1StringView("/")},
};

// "Versions/Current" as the directory that it leads to, so that keys and records name the real one.
QString resolvedVersion(const QString &directory)
{
    if (!directory.endsWith(u"/Versions/Current"))
        return directory;
    const QString target = QFileInfo(directory).canonicalFilePath();
    const QString parent = directory.chopped(QStringView(u"Current").size());
    return target.isEmpty() ? directory : parent + QFileInfo(target).fileName();
}

// A name that leads elsewhere is as good as none.
QString executableName(const QVariantMap &info)
{
    const QString name = info.value(QStringLiteral("CFBundleExecutable")).toString();
    return name.contains(u'/') ? QString() : name;
}

CodeBundle bundleAtPlace(const QString &path, const Place &place,
                         const std::optional<QVariantMap> &info)
{
    const QString executable = executableName(info.value_or(QVariantMap()));
    const QString codeDirectory = resolvedVersion(path + place.codeDirectory);
    const qsizetype prefix = place.codeDirectory.size();
    // The result is named: a sum alone would refer to its parts, which end with the call.
    const auto below = [&](QLatin1StringView whole) -> QString {
        return codeDirectory + QString(whole).mid(prefix);
    };
    return CodeBundle{.path = path,
                      .layout = place.layout,
                      .sealedRoot = path + place.sealedRoot,
                      .codeDirectory = codeDirectory,
                      .infoPlist = below(place.infoPlist),
                      .executable
                      = executable.isEmpty() ? QString() : below(place.executables) + executable,
                      .info = info};
}

} // namespace

QString CodeBundle::signatureDirectory() const
{
    return codeDirectory + u"/_CodeSignature";
}

QString CodeBundle::codeResources() const
{
    return signatureDirectory() + u"/CodeResources";
}

QString CodeBundle::signatureRecord() const
{
    return signatureDirectory() + u"/CodeSignature";
}

QString CodeBundle::format() const
{
    const QString kind
        = layout == Layout::application ? QStringLiteral("app bundle") : QStringLiteral("bundle");
    return kind + (executable.isEmpty() ? u"" : u" with Mach-O thin (stand-in)");
}

QString CodeBundle::identifier() const
{
    const QString named
        = info.value_or(QVariantMap()).value(QStringLiteral("CFBundleIdentifier")).toString();
    return named.isEmpty() ? QFileInfo(path).completeBaseName() : named;
}

bool CodeBundle::isSigned() const
{
    return QFileInfo::exists(signatureRecord());
}

std::optional<CodeBundle> codeBundleAt(const QString &path)
{
    for (const Place &place : places) {
        const QString infoPlist = path + place.infoPlist;
        if (QFileInfo(infoPlist).isFile())
            return bundleAtPlace(path, place, readDictionary(infoPlist));
    }
    return std::nullopt;
}

bool hasCodeBundleName(const QString &path)
{
    static constexpr std::array<QStringView, 7> extensions{
        u"app", u"framework", u"bundle", u"xpc", u"appex", u"plugin", u"kext"};
    const QString extension = QFileInfo(path).suffix();
    return std::ranges::find(extensions, QStringView(extension)) != extensions.end();
}
