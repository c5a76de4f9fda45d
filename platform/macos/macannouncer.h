#pragma once

#include "platform/announcer.h"

/// AppKit's announcements to VoiceOver.
class MacAnnouncer final : public Announcer {
public:
    void announce(const QString &text) override;
};
