#pragma once

#include <QString>
#include <QStringList>

/// The lines in which the tool describes a signed bundle, more of them for a higher verbosity.
/// Throws CodesignFailure when it is not signed.
[[nodiscard]] QStringList describeSignature(const QString &path, int verbosity);
