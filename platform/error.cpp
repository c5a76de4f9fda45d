#include "platform/error.h"

#include <QCoreApplication>
#include <QLocale>

#include <system_error>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("PlatformError", text);
}

// “%1” is the path and %2 the reason.
QString pattern(PlatformError::Action action)
{
    using Action = PlatformError::Action;
    switch (action) {
    case Action::List:
        return translated(QT_TRANSLATE_NOOP("PlatformError", "Could not list “%1”: %2"));
    case Action::Read:
        return translated(QT_TRANSLATE_NOOP("PlatformError", "Could not read “%1”: %2"));
    case Action::Write:
        return translated(QT_TRANSLATE_NOOP("PlatformError", "Could not write “%1”: %2"));
    case Action::Create:
        return translated(QT_TRANSLATE_NOOP("PlatformError", "Could not create “%1”: %2"));
    case Action::Copy:
        return translated(QT_TRANSLATE_NOOP("PlatformError", "Could not copy “%1”: %2"));
    case Action::CopyIntoItself:
        return translated(
            QT_TRANSLATE_NOOP("PlatformError", "Could not copy “%1” into itself: %2"));
    case Action::Move:
        return translated(QT_TRANSLATE_NOOP("PlatformError", "Could not move “%1”: %2"));
    case Action::Remove:
        return translated(QT_TRANSLATE_NOOP("PlatformError", "Could not remove “%1”: %2"));
    case Action::Launch:
        return translated(QT_TRANSLATE_NOOP("PlatformError", "Could not launch “%1”: %2"));
    case Action::WaitFor:
        return translated(QT_TRANSLATE_NOOP("PlatformError", "Could not wait for “%1”: %2"));
    }
    Q_UNREACHABLE();
}

} // namespace

PlatformError::PlatformError(Action action, const QString &path, const QString &reason)
    : m_description(pattern(action).arg(path, reason))
{
}

PlatformError PlatformError::fromErrno(Action action, const QString &path, int errorNumber)
{
    return {action, path, QString::fromStdString(std::generic_category().message(errorNumber))};
}

PlatformError PlatformError::tookTooLong(const QString &path, std::chrono::duration<double> limit)
{
    return PlatformError(
        translated(QT_TRANSLATE_NOOP("PlatformError", "“%1” did not finish in %2 s and was ended"))
            .arg(path, QLocale().toString(limit.count())));
}

PlatformError PlatformError::withoutReason()
{
    return PlatformError(
        translated(QT_TRANSLATE_NOOP("PlatformError", "The system gave no reason.")));
}
