#pragma once

#include <QColor>
#include <QString>

#include <functional>
#include <optional>

/// How the user wants all windows to look.
class Appearance {
public:
    struct Settings {
        bool isDark = false;
        std::optional<QColor> accent{}; ///< nothing: the user chose none
        bool reducesMotion = false;

        bool operator==(const Settings &) const = default;
    };

    virtual ~Appearance() = default;

    [[nodiscard]] virtual Settings settings() const = 0;
    /// Of the windows' texts. Empty: the application's own font.
    [[nodiscard]] virtual QString fontFamily() const { return {}; }
    /// From now on calls `changed`, on the main thread, after each change of the settings.
    virtual void observe(std::function<void()> changed) = 0;
};
