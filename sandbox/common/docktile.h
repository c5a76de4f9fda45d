#pragma once

#include "sandbox/common/appbundle.h"

#include <QVariantList>
#include <QVariantMap>

#include <optional>

/// The dictionary by which the Dock's preferences describe a pinned application that lies
/// at `path`.
[[nodiscard]] QVariantMap dockTileFor(const AppBundle &app, const QString &path);

/// The path that such a dictionary points to; nothing when it is not understood.
[[nodiscard]] std::optional<QString> pathOfDockTile(const QVariant &tile);

/// The tiles of "persistent-apps", and the whole preferences with others in their place.
[[nodiscard]] QVariantList persistentApps(const QVariantMap &preferences);
[[nodiscard]] QVariantMap withPersistentApps(QVariantMap preferences, const QVariantList &tiles);
