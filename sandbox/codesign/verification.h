#pragma once

#include "sandbox/codesign/signaturerecord.h"

#include <QStringList>

/// How "--verify" was asked to verify.
struct VerificationRequest {
    bool deep{}; ///< code inside is verified too, not only recognised
    bool strict{}; ///< links must stay inside the bundle
};

/// Passes when the bundle at a path is signed and is still what was signed. Throws CodesignFailure,
/// or PlatformError when something cannot be read.
void verifyCode(const QString &path, const VerificationRequest &request);

/// The bundle at a path. Throws CodesignFailure when there is none.
[[nodiscard]] CodeBundle existingBundle(const QString &path);
/// The record of a signed bundle. Throws CodesignFailure when there is none or it was edited.
[[nodiscard]] SignatureRecord signatureOf(const CodeBundle &bundle);

/// What lies beside "Contents" in an application, where no seal covers it.
[[nodiscard]] QStringList unsealedRootContents(const CodeBundle &bundle);
inline const QString unsealedContentsText
    = QStringLiteral("unsealed contents present in the bundle root");
