#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

// The environment through which a stand-in Mac and its applications know each other.

constexpr const char *rootVariable = "NESTLET_COMPANION_ROOT";
constexpr const char *feedVariable = "NESTLET_COMPANION_FEED";
constexpr const char *identifierVariable = "__CFBundleIdentifier"; ///< set as on a Mac
constexpr const char *activatesVariable = "NESTLET_ACTIVATES"; ///< "1": to come to the front

/// Where the stand-in Mac is: the variable's folder, else one in the user's data directory.
/// Absolute.
[[nodiscard]] QString standInRoot();

/// This program's environment as "NAME=value" entries, with those of `changes` in place of its own.
/// The variables that belong to one application are never handed on.
[[nodiscard]] QList<QByteArray> environmentWith(const QHash<QByteArray, QByteArray> &changes);
