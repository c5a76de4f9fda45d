#pragma once

#include <QStringList>

class QQuickWindow;

/// What is wrong with the texts that a window shows, in words: cut off, wider or higher than their
/// place, over the edge of their button or window, over one another, or in no catalogue. `names`
/// are the user's own, which may be cut off and need no translation.
[[nodiscard]] QStringList textFaults(const QQuickWindow &window, const QStringList &names);
