#pragma once

#include <QString>

/// Whether two texts are the same to the platform: exact and case-sensitive, but a composed and a
/// decomposed accent are one character.
[[nodiscard]] bool isCanonicallyEqual(const QString &a, const QString &b);

/// A copy of `format` with its one "%@" replaced; `argument` is not looked into.
[[nodiscard]] QString filledIn(const QString &format, const QString &argument);

/// A copy of `format` with its one "%lld" replaced by the number's plain digits.
[[nodiscard]] QString filledIn(const QString &format, qint64 number);
