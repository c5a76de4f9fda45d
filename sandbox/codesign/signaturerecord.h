#pragma once

#include "sandbox/codesign/codebundle.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// Who signs: ad hoc, or an identity such as "Developer ID Application: Name (TEAM123456)".
struct SigningIdentity {
    QString authority{}; ///< empty: ad hoc
    QString team{}; ///< what the identity has in its last parentheses; may be empty

    [[nodiscard]] bool isAdHoc() const { return authority.isEmpty(); }
    bool operator==(const SigningIdentity &) const = default;
};

/// The identity that a "--sign" argument names.
[[nodiscard]] SigningIdentity signingIdentity(const QString &argument);

/// The signature of one bundle: who signed what. A digest over it tells when it was edited.
struct SignatureRecord {
    QString identifier{};
    SigningIdentity signer{};
    QByteArray entitlements{}; ///< the file's bytes; empty: none were given
    QByteArray codeResourcesHash{};
    QByteArray infoPlistHash{};
    QByteArray executableHash{}; ///< empty: the bundle has no executable

    [[nodiscard]] qint64 flags() const;
    /// Identifies the signed code.
    [[nodiscard]] QByteArray codeDirectoryHash() const;
    bool operator==(const SignatureRecord &) const = default;
};

[[nodiscard]] QByteArray encodeSignatureRecord(const SignatureRecord &record);
/// Nothing when the bytes are no record or were edited.
[[nodiscard]] std::optional<SignatureRecord> decodeSignatureRecord(const QByteArray &bytes);

/// The record that describes a bundle as it is now on disk, sealed by the given list.
[[nodiscard]] SignatureRecord describeCode(const CodeBundle &bundle,
                                           const QByteArray &codeResources);
