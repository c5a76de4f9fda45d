#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <span>

/// Replaces a file, or creates it, so that readers see the old bytes or the new ones. A link stays
/// and what it leads to is replaced. The old file's mode is kept. Throws PlatformError, and then no
/// temporary file stays; one that a killed program left behind is cleared away by the next write.
void writeFileAtomically(const QByteArray &path, std::span<const QByteArrayView> pieces);
