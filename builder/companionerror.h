#pragma once

#include "platform/error.h"

/// What goes wrong between a folder and its Dock app. The kinds stand in the order of their
/// messages.
class CompanionError final : public Error {
public:
    enum class Kind {
        missingNestletApp, ///< carries the searched paths
        invalidInfoPlist, ///< carries the path of the Info.plist
        invalidNestletApp, ///< carries a reason
        signingFailed, ///< carries the signing tool's diagnostics
    };

    CompanionError(Kind kind, const QString &text)
        : m_kind(kind)
        , m_text(text)
    {
    }

    [[nodiscard]] Kind kind() const { return m_kind; }
    [[nodiscard]] const QString &text() const { return m_text; }
    /// The kind's message with the text filled in.
    [[nodiscard]] QString description() const override;

private:
    Kind m_kind;
    QString m_text;
};
