#pragma once

#include "platform/appearance.h"

#include <QObject>

/// What the colours of the desktop tell of it: dark when its windows are.
class PaletteAppearance final : public QObject, public Appearance {
public:
    PaletteAppearance();

    [[nodiscard]] Settings settings() const override { return m_settings; }
    [[nodiscard]] QString fontFamily() const override { return QStringLiteral("Inter"); }
    void observe(std::function<void()> changed) override { m_changed = std::move(changed); }
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Settings m_settings;
    std::function<void()> m_changed;
};
