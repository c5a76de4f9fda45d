#include "platform/portable/portabledirectories.h"

#include <QDir>

FileURL PortableDirectories::applicationSupport() const
{
    return system(QStringLiteral("/Users/me/Library/Application Support/"));
}

FileURL PortableDirectories::userApplications() const
{
    return system(QStringLiteral("/Users/me/Applications/"));
}

FileURL PortableDirectories::home() const
{
    return system(QStringLiteral("/Users/me/"));
}

FileURL PortableDirectories::temporary() const
{
    const QString path = m_root + QStringLiteral("/private/tmp");
    QDir().mkpath(path); // else the first write there says why not
    return FileURL::directory(path);
}

FileURL PortableDirectories::system(const QString &absolutePath) const
{
    return absolutePath.endsWith(u'/') ? FileURL::directory(m_root + absolutePath)
                                       : FileURL::file(m_root + absolutePath);
}
