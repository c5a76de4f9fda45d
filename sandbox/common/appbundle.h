#pragma once

#include <QString>
#include <QUuid>
#include <QVariantMap>

#include <optional>

/// An application bundle on disk and what its Info.plist says.
class AppBundle {
public:
    /// Nothing when there is no readable Info.plist.
    [[nodiscard]] static std::optional<AppBundle> at(const QString &path);
    /// The bundle whose program an executable is: that of ".../X.app/Contents/MacOS/name". It need
    /// not exist any more; see at().
    [[nodiscard]] static std::optional<QString> pathForExecutable(const QString &executable);

    [[nodiscard]] QString path() const { return m_path; }
    [[nodiscard]] QString identifier() const { return text(QStringLiteral("CFBundleIdentifier")); }
    /// What the user calls it: the display name, else the bundle name, else the file's name.
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString executableName() const
    {
        return text(QStringLiteral("CFBundleExecutable"));
    }
    [[nodiscard]] QString executable() const;
    [[nodiscard]] QString resource(const QString &name) const;
    /// Empty when the bundle names no icon.
    [[nodiscard]] QString iconFile() const;
    /// Of a Dock proxy app: the folder that it shows.
    [[nodiscard]] std::optional<QUuid> dockFolderID() const;
    /// Whether it stays out of the Dock.
    [[nodiscard]] bool isAgent() const;

private:
    AppBundle(const QString &path, const QVariantMap &info)
        : m_path(path)
        , m_info(info)
    {
    }
    [[nodiscard]] QString text(const QString &key) const { return m_info.value(key).toString(); }

    QString m_path;
    QVariantMap m_info;
};
