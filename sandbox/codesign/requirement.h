#pragma once

#include "sandbox/codesign/signaturerecord.h"

#include <QString>

#include <optional>

/// Whether signed code satisfies a requirement such as
/// `=identifier "qx.Nestlet" and certificate leaf[subject.OU] = "TEAM123456"`: those two kinds of
/// clause, joined by "and". Nothing when the text is not such a requirement.
[[nodiscard]] std::optional<bool> satisfiesRequirement(const SignatureRecord &record,
                                                       const QString &requirement);
