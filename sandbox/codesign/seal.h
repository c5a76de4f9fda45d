#pragma once

#include "sandbox/codesign/codebundle.h"

#include <QByteArray>
#include <QMap>
#include <QString>

/// What one entry of a sealed tree is and must remain. Exactly one field is set.
struct SealedEntry {
    QByteArray hash{}; ///< of a file's bytes
    QString linkTarget{}; ///< of a symbolic link, as it is written
    QByteArray nestedCodeHash{}; ///< of the signature record of a bundle inside
    bool operator==(const SealedEntry &) const = default;
};

/// The entries of a sealed tree by their relative paths. The Info.plist, the main executable and
/// the signature itself are not among them: the signature record covers those.
using Seal = QMap<QString, SealedEntry>;

/// Reads the whole tree. Throws PlatformError when something in it cannot be read, CodesignFailure
/// when code inside is not signed.
[[nodiscard]] Seal sealOf(const CodeBundle &bundle);

/// SHA-256 of a file. Throws PlatformError.
[[nodiscard]] QByteArray fileHash(const QString &path);

/// The property list "CodeResources" of a seal, and back. Reading throws PlatformError.
[[nodiscard]] QByteArray codeResourcesFromSeal(const Seal &seal);
[[nodiscard]] Seal sealFromCodeResources(const QByteArray &bytes, const QString &path);
/// How many rules a CodeResources list names.
[[nodiscard]] qsizetype sealRuleCount();
