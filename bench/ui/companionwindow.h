#pragma once

#include "platform/platform.h"
#include "store/companionengine.h"
#include "ui/companionviewmodel.h"
#include "ui/picturestore.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>

/// The window over the library of the stand-in Mac that the environment names, as the program makes
/// it, but in this process.
class CompanionWindow {
public:
    CompanionWindow();

    [[nodiscard]] CompanionStore &store() { return m_companion.store; }
    [[nodiscard]] CompanionViewModel &model() { return m_model; }
    [[nodiscard]] QQuickWindow &window() const { return *m_window; }
    /// What has an object's name, and ends the benchmark when there is none.
    [[nodiscard]] QQuickItem *item(const char *objectName) const;

private:
    Platform m_platform;
    CompanionEngine m_companion;
    PictureStore m_pictures;
    CompanionViewModel m_model;
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
};
