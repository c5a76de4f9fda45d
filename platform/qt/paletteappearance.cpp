#include "platform/qt/paletteappearance.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace {

Appearance::Settings paletteSettings()
{
    const QColor window = QGuiApplication::palette().color(QPalette::Window);
    return {.isDark = window.lightnessF() < 0.5F};
}

} // namespace

PaletteAppearance::PaletteAppearance()
    : m_settings(paletteSettings())
{
    qGuiApp->installEventFilter(this);
}

bool PaletteAppearance::eventFilter(QObject *watched, QEvent *event)
{
    // The application itself is told, and so is each window.
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qGuiApp) {
        const Settings next = paletteSettings();
        if (std::exchange(m_settings, next) != next && m_changed)
            m_changed();
    }
    return false;
}
