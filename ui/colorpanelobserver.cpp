#include "ui/colorpanelobserver.h"

#include "model/accentcolor.h"
#include "ui/appearanceoptions.h"

bool ColorPanelObserver::isAvailable() const
{
    return m_panels && m_panels->colorPanel();
}

void ColorPanelObserver::open(const QString &hex)
{
    if (!isAvailable())
        return;
    ColorPanel &panel = *m_panels->colorPanel();
    m_token.reset(); // setting the colour is no choice of the user
    panel.show(AppearanceOptions::colorOrFirst(hex));
    m_token
        = panel.observe([this](const QColor &color) { Q_EMIT changed(hexTextFromColor(color)); });
}

void ColorPanelObserver::stop()
{
    if (!m_token)
        return;
    m_token.reset();
    m_panels->colorPanel()->close();
}
