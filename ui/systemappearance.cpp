#include "ui/systemappearance.h"

#include "platform/qt/paletteappearance.h"

#include <QQmlEngine>

namespace {

constexpr const char *appearanceProperty = "companionAppearance";

} // namespace

void setAppearance(QQmlEngine &engine, Appearance &appearance)
{
    engine.setProperty(appearanceProperty, QVariant::fromValue(&appearance));
}

SystemAppearance *SystemAppearance::create(QQmlEngine *engine, QJSEngine *)
{
    return new SystemAppearance(engine->property(appearanceProperty).value<Appearance *>());
}

SystemAppearance::SystemAppearance(Appearance *appearance)
    : m_desktop(appearance ? nullptr : std::make_unique<PaletteAppearance>())
    , m_appearance(appearance ? *appearance : *m_desktop)
    , m_settings(m_appearance.settings())
{
    m_appearance.observe([this] { update(); });
}

SystemAppearance::~SystemAppearance()
{
    m_appearance.observe({});
}

QColor SystemAppearance::accent() const
{
    constexpr QRgb blue = 0x007AFF;
    constexpr QRgb blueInTheDark = 0x0A84FF;
    return m_settings.accent.value_or(QColor(m_settings.isDark ? blueInTheDark : blue));
}

void SystemAppearance::update()
{
    const Appearance::Settings next = m_appearance.settings();
    if (std::exchange(m_settings, next) != next)
        Q_EMIT changed();
}
