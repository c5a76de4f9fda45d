#pragma once

#include "sandbox/codesign/codebundle.h"

#include <QStringList>

/// What lies in a bundle's sealed tree, by relative paths in order. Code inside is named, not
/// entered.
struct SealedTree {
    QStringList files{};
    QStringList links{};
    QStringList nestedCode{};
};

/// Walks the tree without following links. Throws PlatformError; a device or pipe is an error.
[[nodiscard]] SealedTree sealedTreeOf(const CodeBundle &bundle);

/// What a link says, as it is written. Throws PlatformError.
[[nodiscard]] QString linkTarget(const QString &path);
