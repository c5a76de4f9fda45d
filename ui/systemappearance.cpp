#include "ui/systemappearance.h"

#include "platform/qt/paletteappearance.h"
#include "platform/symbolimages.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QQmlEngine>

#include <array>
#include <tuple>

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
    // What the window's first texts are written in: others are read when they are needed.
    struct Typeface {
        int pixelSize;
        QFont::Weight weight;
    };
    constexpr auto first = std::to_array<Typeface>({{10, QFont::Normal},
                                                    {13, QFont::Normal},
                                                    {13, QFont::Bold},
                                                    {15, QFont::Bold},
                                                    {22, QFont::DemiBold}});
    for (const auto &[pixelSize, weight] : first) {
        QFont font(fontFamilyOf(appearance));
        font.setPixelSize(pixelSize);
        font.setWeight(weight);
        QFontMetrics(font).horizontalAdvance(u'A');
    }
    std::ignore = symbolImage(QStringLiteral("plus"), {}, QSize(1, 1)); // however small
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
