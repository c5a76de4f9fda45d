#pragma once

#include "platform/fileurl.h"

#include <QList>
#include <QStringList>

/// URLs cross QML as texts, which keep every escape and slash. Texts that are no URLs are left out.
[[nodiscard]] QList<FileURL> urlsFromTexts(const QStringList &texts);
