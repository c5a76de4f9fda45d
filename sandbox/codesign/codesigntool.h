#pragma once

#include <QStringList>

/// The stand-in's code-signing tool: seals a bundle, verifies it or describes its signature.
/// Diagnostics and descriptions go to standard error. Returns the exit status: 0, 1 when something
/// failed, 2 for a wrong usage, 3 when only a requirement was not met.
[[nodiscard]] int runCodesign(const QStringList &arguments);
