#pragma once

#include "platform/directories.h"

#include <QStringList>
#include <QTemporaryDir>

/// A Mac with 4,000 applications: 2,000 side by side in three roots and 200 folders of ten. The
/// bundles are empty, as no scan looks into them.
class ApplicationTree final : public Directories {
public:
    ApplicationTree();

    /// The paths of the three roots.
    [[nodiscard]] QStringList roots() const;
    /// The paths of the roots and of the folders in them: all that must be listed.
    [[nodiscard]] const QStringList &folders() const { return m_folders; }

    [[nodiscard]] FileURL applicationSupport() const override
    {
        return at(QStringLiteral("/Library"));
    }
    [[nodiscard]] FileURL userApplications() const override
    {
        return at(QStringLiteral("/me/Applications"));
    }
    [[nodiscard]] FileURL home() const override { return at(QStringLiteral("/me")); }
    [[nodiscard]] FileURL temporary() const override { return at(QStringLiteral("/tmp")); }
    [[nodiscard]] FileURL system(const QString &path) const override { return at(path); }

private:
    [[nodiscard]] FileURL at(const QString &path) const
    {
        return FileURL::directory(m_root.path() + path);
    }

    QTemporaryDir m_root;
    QStringList m_folders;
};
