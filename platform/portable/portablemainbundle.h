#pragma once

#include "platform/mainbundle.h"

/// The bundle around the program's executable, or that executable's folder. Outside a bundle the
/// build's own number is the version.
class PortableMainBundle final : public MainBundle {
public:
    /// `executableDirectory`: the absolute path of the folder in which the program is.
    explicit PortableMainBundle(const QString &executableDirectory);

    [[nodiscard]] FileURL url() const override { return m_url; }
    [[nodiscard]] std::optional<QString> version() const override { return m_version; }

private:
    FileURL m_url;
    std::optional<QString> m_version;
};
