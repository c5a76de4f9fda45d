#pragma once

#include "sandbox/scene/appearance.h"
#include "sandbox/scene/iconprovider.h"

#include <QQmlApplicationEngine>
#include <QVariantMap>

/// The one window of a program of the stand-in, and what all such windows are given. Closing the
/// window does not end the program.
class Stage {
public:
    Stage();

    /// What the window can ask for as "image://icons/...".
    [[nodiscard]] IconProvider &icons() { return m_icons; }
    /// Makes the window from a file of a QML module. Its properties are these and `appearance`.
    /// What they refer to outlives `run`. False: there is no window.
    [[nodiscard]] bool load(const QString &file, QVariantMap properties);
    /// Handles events until the program is to quit, and takes the window away. The exit status.
    int run();

private:
    Appearance m_appearance;
    IconProvider &m_icons; ///< the engine's
    QQmlApplicationEngine m_engine;
};
