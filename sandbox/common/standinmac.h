#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Where things are in a stand-in Mac: a folder that holds what a real one keeps at the same paths.
class StandInMac {
public:
    explicit StandInMac(const QString &root);

    /// The one this process belongs to: that of NESTLET_COMPANION_ROOT, else the one that its
    /// executable lies in.
    [[nodiscard]] static std::optional<StandInMac> current();
    /// The environment variable that names the root.
    [[nodiscard]] static QByteArray rootVariable()
    {
        return QByteArrayLiteral("NESTLET_COMPANION_ROOT");
    }

    /// The root without links, as the kernel shows it for executables.
    [[nodiscard]] QString root() const { return m_root; }
    [[nodiscard]] QString path(QStringView below) const { return m_root + u'/' + below; }
    [[nodiscard]] QString home() const { return path(u"Users/me"); }
    [[nodiscard]] QString folderLibraryPath() const;
    [[nodiscard]] QString dockPreferences() const;
    [[nodiscard]] QString dockApp() const;
    /// Present in the root of every finished stand-in.
    [[nodiscard]] QString marker() const { return path(u".nestlet-stand-in"); }

private:
    QString m_root;
};
