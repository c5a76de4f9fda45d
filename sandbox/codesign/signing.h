#pragma once

#include "sandbox/codesign/signaturerecord.h"

#include <QString>

/// How "--sign" was asked to sign.
struct SigningRequest {
    SigningIdentity signer{};
    QString identifier{}; ///< empty: the bundle's own
    QByteArray entitlements{};
    bool deep{}; ///< signs code inside first
    bool force{}; ///< replaces a signature
};

/// Signs the bundle at a path. Throws CodesignFailure or PlatformError.
void signCode(const QString &path, const SigningRequest &request);

/// The bytes of an entitlements file. Throws CodesignFailure when it is no property list.
[[nodiscard]] QByteArray readEntitlements(const QString &path);
