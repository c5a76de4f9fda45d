#include "platform/portable/environment.h"

#include <QDir>
#include <QStandardPaths>

#include <unistd.h>

QString standInRoot()
{
    const QString chosen = qEnvironmentVariable(rootVariable);
    if (!chosen.isEmpty())
        return QDir::cleanPath(QDir::current().absoluteFilePath(chosen));
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QStringLiteral("/nestlet-companion/Mac");
}

QList<QByteArray> environmentWith(const QHash<QByteArray, QByteArray> &changes)
{
    QList<QByteArray> entries;
    for (char **entry = environ; *entry; ++entry) {
        const QByteArray text(*entry);
        const QByteArray name = text.left(text.indexOf('='));
        if (!changes.contains(name) && name != identifierVariable && name != activatesVariable)
            entries.append(text);
    }
    for (auto change = changes.cbegin(); change != changes.cend(); ++change)
        entries.append(change.key() + '=' + change.value());
    return entries;
}
