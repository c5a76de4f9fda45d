#pragma once

#include "platform/openpanel.h"

/// AppKit's open panel.
class MacOpenPanel final : public OpenPanel {
public:
    void choose(const Request &request, Completion completion) override;
};
