#include "platform/text.h"

namespace {

QString replaceFirst(const QString &format, QLatin1StringView placeholder, const QString &text)
{
    const qsizetype at = format.indexOf(placeholder);
    return at < 0 ? format : QString(format).replace(at, placeholder.size(), text);
}

} // namespace

bool isCanonicallyEqual(const QString &a, const QString &b)
{
    return a == b
        || a.normalized(QString::NormalizationForm_C) == b.normalized(QString::NormalizationForm_C);
}

QString filledIn(const QString &format, const QString &argument)
{
    return replaceFirst(format, QLatin1StringView("%@"), argument);
}

QString filledIn(const QString &format, qint64 number)
{
    return replaceFirst(format, QLatin1StringView("%lld"), QString::number(number));
}
