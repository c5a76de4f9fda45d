#pragma once

#include "platform/colorpanel.h"

/// AppKit's shared colour panel.
class MacColorPanel final : public ColorPanel {
public:
    void show(const QColor &color) override;
    void close() override;
    [[nodiscard]] std::unique_ptr<Observation>
    observe(std::function<void(const QColor &)> changed) override;
};
