#include "ui/systemappearance.h"

#include "platform/qt/paletteappearance.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QQmlEngine>

namespace {

constexpr const char *appearanceProperty = "companionAppearance";

QString fontFamilyOf(const Appearance &appearance)
{
    const QString family = appearance.fontFamily();
    return family.isEmpty() ? QGuiApplication::font().family() : family;
}

} // namespace

void setAppearance(QQmlEngine &engine, Appearance &appearance)
{
    engine.setProperty(appearanceProperty, QVariant::fromValue(&appearance));
}

void loadFonts(const Appearance &appearance)
{
    // The theme's weights: each is a file. Sizes of the same file cost little.
    for (const auto weight : {QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold}) {
        QFont font(fontFamilyOf(appearance));
        font.setWeight(weight);
        QFontMetrics(font).horizontalAdvance(u'A');
    }
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

QString SystemAppearance::fontFamily() const
{
    return fontFamilyOf(m_appearance);
}

void SystemAppearance::update()
{
    const Appearance::Settings next = m_appearance.settings();
    if (std::exchange(m_settings, next) != next)
        Q_EMIT changed();
}
