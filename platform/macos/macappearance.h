#pragma once

#include "platform/appearance.h"

/// The appearance as AppKit knows it.
class MacAppearance final : public Appearance {
public:
    MacAppearance();
    MacAppearance(const MacAppearance &) = delete;
    MacAppearance &operator=(const MacAppearance &) = delete;
    ~MacAppearance() override;

    [[nodiscard]] Settings settings() const override;
    void observe(std::function<void()> changed) override;

private:
    struct Observer;
    std::unique_ptr<Observer> m_observer;
};
