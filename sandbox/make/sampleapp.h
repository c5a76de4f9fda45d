#pragma once

#include "sandbox/drawing/appicon.h"

#include <QList>
#include <QString>

/// One of the made-up applications of a stand-in Mac.
struct SampleApp {
    QString path{}; ///< below the root, with the extension
    QString identifier{};
    AppIconLook look{};
    bool hasBinaryInfo{}; ///< its Info.plist is binary instead of XML

    /// The file's name without its extension.
    [[nodiscard]] QString name() const;
};

/// All of them. Their names test sorting, escaping and the depth of searches.
[[nodiscard]] const QList<SampleApp> &sampleApps();
