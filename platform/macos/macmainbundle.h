#pragma once

#include "platform/mainbundle.h"

/// The bundle that the system started this program from.
class MacMainBundle final : public MainBundle {
public:
    [[nodiscard]] FileURL url() const override;
    [[nodiscard]] std::optional<QString> version() const override;
};
