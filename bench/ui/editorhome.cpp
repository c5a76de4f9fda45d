#include "bench/ui/editorhome.h"

#include "bench/require.h"

#include <QDir>
#include <QFile>

#include <pwd.h>
#include <unistd.h>

namespace {

constexpr const char *program = "/usr/bin/menulibre";
constexpr int launchers = 100;

// It does not run as the superuser.
uid_t otherUser()
{
    const passwd *const nobody = geteuid() == 0 ? getpwnam("nobody") : nullptr;
    return nobody ? nobody->pw_uid : 0;
}

void write(const QString &path, const QString &text)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0,
            "a file cannot be written");
}

const QString menu = QStringLiteral(R"(<!DOCTYPE Menu PUBLIC "-//freedesktop//DTD Menu 1.0//EN"
 "http://www.freedesktop.org/standards/menu-spec/1.0/menu.dtd">
<Menu>
<Name>Applications</Name>
<DefaultAppDirs/>
<DefaultDirectoryDirs/>
<DefaultMergeDirs/>
<Menu><Name>Utilities</Name><Include><Category>Utility</Category></Include></Menu>
</Menu>
)");

const QString launcher = QStringLiteral(R"([Desktop Entry]
Type=Application
Name=Launcher %1
Comment=The launcher of number %1
Exec=true
Icon=application-x-executable
Categories=Utility;
)");

} // namespace

bool EditorHome::isThere()
{
    return QFile::exists(QString::fromLatin1(program));
}

EditorHome::EditorHome()
{
    const QDir home(m_directory.path());
    for (const char *folder :
         {"config/menus", "data/applications", "data/desktop-directories", "cache"})
        home.mkpath(QString::fromLatin1(folder));
    write(home.filePath(QStringLiteral("config/menus/bench-applications.menu")), menu);
    for (int number = 0; number < launchers; ++number) {
        write(home.filePath(QStringLiteral("data/applications/launcher%1.desktop").arg(number)),
              launcher.arg(number));
    }
    const uid_t owner = otherUser();
    if (owner == 0)
        return;
    for (const char *folder : {".", "config", "config/menus", "data", "data/applications",
                               "data/desktop-directories", "cache"}) {
        const QByteArray path = QFile::encodeName(home.filePath(QString::fromLatin1(folder)));
        require(chown(path.constData(), owner, gid_t(-1)) == 0, "a folder cannot be given away");
    }
}

ProgramCall EditorHome::call(const QList<QByteArray> &environment) const
{
    const QByteArray home = QFile::encodeName(m_directory.path());
    return {.path = program,
            .environment = environment
                + QList<QByteArray>{"HOME=" + home, "XDG_CONFIG_HOME=" + home + "/config",
                                    "XDG_DATA_HOME=" + home + "/data",
                                    "XDG_CACHE_HOME=" + home + "/cache", "XDG_MENU_PREFIX=bench-"},
            .user = otherUser()};
}
