#pragma once

#include "platform/workspace.h"

/// The workspace as AppKit offers it.
class MacWorkspace final : public Workspace {
public:
    [[nodiscard]] std::optional<FileURL>
    applicationWithBundleIdentifier(const QString &bundleIdentifier) const override;
    void openApplication(const FileURL &bundle, Activation activation,
                         OpenCompletion completion) override;
    void openURL(const QUrl &url) override;
    void reveal(const QList<FileURL> &urls) override;
    [[nodiscard]] QImage icon(const FileURL &url, int side) const override;
};
