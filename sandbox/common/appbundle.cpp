#include "sandbox/common/appbundle.h"

#include "sandbox/common/files.h"

#include <QFileInfo>

namespace {

const QString programs = QStringLiteral("/Contents/MacOS");

} // namespace

std::optional<AppBundle> AppBundle::at(const QString &path)
{
    if (const auto info = readDictionary(path + u"/Contents/Info.plist"))
        return AppBundle(path, *info);
    return std::nullopt;
}

std::optional<QString> AppBundle::pathForExecutable(const QString &executable)
{
    const QString directory = QFileInfo(executable).path();
    if (!directory.endsWith(programs))
        return std::nullopt;
    return directory.chopped(programs.size());
}

QString AppBundle::name() const
{
    for (const QString &key :
         {QStringLiteral("CFBundleDisplayName"), QStringLiteral("CFBundleName")}) {
        if (QString name = text(key); !name.isEmpty())
            return name;
    }
    return QFileInfo(m_path).completeBaseName();
}

QString AppBundle::executable() const
{
    return m_path + programs + u'/' + executableName();
}

QString AppBundle::resource(const QString &name) const
{
    return m_path + u"/Contents/Resources/" + name;
}

QString AppBundle::iconFile() const
{
    const QString name = text(QStringLiteral("CFBundleIconFile"));
    if (name.isEmpty())
        return {};
    return resource(QFileInfo(name).suffix().isEmpty() ? name + u".icns" : name);
}

std::optional<QUuid> AppBundle::dockFolderID() const
{
    const QUuid id(text(QStringLiteral("DockFolderID")));
    return id.isNull() ? std::nullopt : std::optional(id);
}

bool AppBundle::isAgent() const
{
    return m_info.value(QStringLiteral("LSUIElement")).toBool();
}
