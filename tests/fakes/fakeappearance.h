#pragma once

#include "platform/appearance.h"

/// Looks as the test says.
struct FakeAppearance final : Appearance {
    Settings current{};
    QString family{};
    std::function<void()> changed{};

    /// The user chose other settings.
    void change(const Settings &next)
    {
        current = next;
        if (changed)
            changed();
    }

    [[nodiscard]] Settings settings() const override { return current; }
    [[nodiscard]] QString fontFamily() const override { return family; }
    void observe(std::function<void()> observer) override { changed = std::move(observer); }
};
