#include "sandbox/make/bundlewriter.h"

#include "sandbox/common/files.h"
#include "sandbox/drawing/icnsfile.h"

#include <QFileInfo>

namespace {

const QString executableKey = QStringLiteral("CFBundleExecutable");
const QString iconName = QStringLiteral("AppIcon");

void writeIcon(const QString &path, const AppIconLook &look)
{
    writeFile(path, makeIcnsFile([&](int side) { return drawAppIcon(look, side); }));
}

} // namespace

QVariantMap applicationInfo(const QString &name, const QString &identifier,
                            const QString &executable)
{
    return {{QStringLiteral("CFBundleDevelopmentRegion"), QStringLiteral("en")},
            {QStringLiteral("CFBundleDisplayName"), name},
            {executableKey, executable},
            {QStringLiteral("CFBundleIdentifier"), identifier},
            {QStringLiteral("CFBundleInfoDictionaryVersion"), QStringLiteral("6.0")},
            {QStringLiteral("CFBundleName"), name},
            {QStringLiteral("CFBundlePackageType"), QStringLiteral("APPL")},
            {QStringLiteral("CFBundleShortVersionString"), QStringLiteral("1.0")},
            {QStringLiteral("CFBundleVersion"), QStringLiteral("1")},
            {QStringLiteral("NSHighResolutionCapable"), true}};
}

void writeApplication(const QString &bundle, const QVariantMap &info, const QString &program,
                      const AppIconLook &look, PropertyListFormat format)
{
    const QString contents = bundle + u"/Contents";
    QVariantMap wholeInfo = info;
    if (!look.symbol.isEmpty()) {
        wholeInfo.insert(QStringLiteral("CFBundleIconFile"), iconName);
        writeIcon(contents + u"/Resources/" + iconName + u".icns", look);
    }
    writeFile(contents + u"/Info.plist", serializePropertyList(wholeInfo, format));
    writeFile(contents + u"/PkgInfo", QByteArrayLiteral("APPL????"));
    copyExecutable(program, contents + u"/MacOS/" + info.value(executableKey).toString());
}

void writeFramework(const QString &bundle, const QString &identifier, const QString &program)
{
    const QString name = QFileInfo(bundle).completeBaseName();
    const QString version = bundle + u"/Versions/A";
    QVariantMap info = applicationInfo(name, identifier, name);
    info.insert(QStringLiteral("CFBundlePackageType"), QStringLiteral("FMWK"));
    writeFile(version + u"/Resources/Info.plist",
              serializePropertyList(info, PropertyListFormat::XML));
    copyExecutable(program, version + u'/' + name);
    makeLink(bundle + u"/Versions/Current", QStringLiteral("A"));
    makeLink(bundle + u'/' + name, u"Versions/Current/" + name);
    makeLink(bundle + u"/Resources", QStringLiteral("Versions/Current/Resources"));
}
