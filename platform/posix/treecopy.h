#pragma once

#include <QByteArray>

/// Copies a file, link or whole tree to a path where nothing is yet: contents, modes, modification
/// times and extended attributes; links with the very bytes they hold. Nothing is waited for on
/// disk. Throws PlatformError; what was copied until then stays.
void copyTree(const QByteArray &from, const QByteArray &to);
