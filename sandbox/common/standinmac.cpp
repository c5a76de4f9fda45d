#include "sandbox/common/standinmac.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

QString withoutLinks(const QString &root)
{
    const QString canonical = QFileInfo(root).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(QDir(root).absolutePath()) : canonical;
}

} // namespace

StandInMac::StandInMac(const QString &root)
    : m_root(withoutLinks(root))
{
}

std::optional<StandInMac> StandInMac::current()
{
    if (const QString named = qEnvironmentVariable(rootVariable().constData()); !named.isEmpty())
        return StandInMac(named);
    QDir directory(QCoreApplication::applicationDirPath());
    do {
        if (StandInMac mac(directory.path()); QFileInfo::exists(mac.marker()))
            return mac;
    } while (directory.cdUp());
    return std::nullopt;
}

QString StandInMac::folderLibraryPath() const
{
    return path(u"Users/me/Library/Application Support/Nestlet/Nestlet.json");
}

QString StandInMac::dockPreferences() const
{
    return path(u"Users/me/Library/Preferences/com.apple.dock.plist");
}

QString StandInMac::dockApp() const
{
    return path(u"System/Library/CoreServices/Dock.app");
}
