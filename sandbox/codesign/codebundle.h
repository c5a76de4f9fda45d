#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

/// A bundle as the signing tool sees it: which tree is sealed, and where the seal lies. Paths are
/// absolute or as the bundle's own.
struct CodeBundle {
    enum class Layout { application, framework, flat };

    QString path{};
    Layout layout{};
    QString sealedRoot{}; ///< everything below it is sealed; keys are relative to it
    QString codeDirectory{}; ///< where "_CodeSignature" lies
    QString infoPlist{};
    QString executable{}; ///< empty when the bundle names none
    std::optional<QVariantMap> info{}; ///< absent: the Info.plist cannot be read

    [[nodiscard]] QString signatureDirectory() const;
    [[nodiscard]] QString codeResources() const;
    [[nodiscard]] QString signatureRecord() const;
    [[nodiscard]] QString format() const;
    /// "CFBundleIdentifier", else the bundle's file name.
    [[nodiscard]] QString identifier() const;
    [[nodiscard]] bool isSigned() const;
};

/// The bundle at a path; nothing when there is none.
[[nodiscard]] std::optional<CodeBundle> codeBundleAt(const QString &path);

/// Whether a directory inside a bundle is code of its own, by its name.
[[nodiscard]] bool hasCodeBundleName(const QString &path);
