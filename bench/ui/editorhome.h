#pragma once

#include "bench/ui/shownprogram.h"

#include <QTemporaryDir>

/// What the editor of launchers that stands beside our window needs to find: a user's folder with a
/// menu of 100 launchers.
class EditorHome {
public:
    EditorHome();

    [[nodiscard]] static bool isThere();
    [[nodiscard]] ProgramCall call(const QList<QByteArray> &environment) const;

private:
    QTemporaryDir m_directory;
};
