#include "platform/error.h"

#include <system_error>

PlatformError PlatformError::fromErrno(const QString &action, const QString &path, int errorNumber)
{
    const QString reason = QString::fromStdString(std::generic_category().message(errorNumber));
    return PlatformError(QStringLiteral("%1 “%2”: %3").arg(action, path, reason));
}
