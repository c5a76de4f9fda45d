#pragma once

#include "platform/appearance.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

/// The appearance that the user chose for all windows, for the theme to follow.
class SystemAppearance final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(bool reducesMotion READ reducesMotion NOTIFY changed)
    Q_PROPERTY(QString fontFamily READ fontFamily CONSTANT)

public:
    /// Has no other observer, and outlives this. Null: goes by the colours of the desktop.
    explicit SystemAppearance(Appearance *appearance);
    ~SystemAppearance() override;
    /// Called by the engine when its first file that asks for the appearance is loaded.
    static SystemAppearance *create(QQmlEngine *engine, QJSEngine *scriptEngine);

    [[nodiscard]] bool isDark() const { return m_settings.isDark; }
    [[nodiscard]] QColor accent() const;
    [[nodiscard]] bool reducesMotion() const { return m_settings.reducesMotion; }
    [[nodiscard]] QString fontFamily() const;

Q_SIGNALS:
    void changed();

private:
    void update();

    std::unique_ptr<Appearance> m_desktop;
    Appearance &m_appearance;
    Appearance::Settings m_settings;
};

/// Names the appearance that an engine's windows follow; to be called before it loads anything.
void setAppearance(QQmlEngine &engine, Appearance &appearance);

/// Reads the fonts of the window's first texts and of the symbols, which these would wait for: to
/// be called while something else has to be waited for.
void loadFonts(const Appearance &appearance);
