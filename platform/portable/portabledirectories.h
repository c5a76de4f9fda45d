#pragma once

#include "platform/directories.h"

/// The folders of a stand-in Mac: every path of the real one, below a root.
class PortableDirectories final : public Directories {
public:
    /// `root` is an absolute path.
    explicit PortableDirectories(const QString &root)
        : m_root(root)
    {
    }

    [[nodiscard]] FileURL applicationSupport() const override;
    [[nodiscard]] FileURL userApplications() const override;
    [[nodiscard]] FileURL home() const override;
    /// Made when it is first asked for.
    [[nodiscard]] FileURL temporary() const override;
    [[nodiscard]] FileURL system(const QString &absolutePath) const override;

private:
    QString m_root;
};
