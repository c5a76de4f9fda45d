#pragma once

#include "platform/appearance.h"
#include "platform/fileurl.h"

#include <QFileSystemWatcher>

/// The appearance that a stand-in Mac's preference files name; where they say nothing of light or
/// dark, that of the desktop. Follows the files, however they are written.
class PortableAppearance final : public Appearance {
public:
    /// `preferences` is the directory of the files; made when it is missing. `desktop` is observed.
    PortableAppearance(const FileURL &preferences, std::unique_ptr<Appearance> desktop);

    [[nodiscard]] Settings settings() const override { return m_settings; }
    [[nodiscard]] QString fontFamily() const override { return m_desktop->fontFamily(); }
    void observe(std::function<void()> changed) override { m_changed = std::move(changed); }

private:
    [[nodiscard]] Settings readSettings() const;
    [[nodiscard]] QVariantMap values(const QString &domain) const;
    void watchFiles();
    void update();

    FileURL m_preferences;
    std::unique_ptr<Appearance> m_desktop;
    QFileSystemWatcher m_watcher;
    Settings m_settings;
    std::function<void()> m_changed;
};
