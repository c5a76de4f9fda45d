#pragma once

#include "platform/directories.h"

#include <QTemporaryDir>

/// The folders of a Mac of its own in a temporary directory. Only the root exists at first.
struct FakeDirectories final : Directories {
    QTemporaryDir root{};

    [[nodiscard]] FileURL at(const QString &path) const
    {
        return FileURL::directory(root.path() + path);
    }

    [[nodiscard]] FileURL applicationSupport() const override
    {
        return at(QStringLiteral("/Users/me/Library/Application Support"));
    }
    [[nodiscard]] FileURL userApplications() const override
    {
        return at(QStringLiteral("/Users/me/Applications"));
    }
    [[nodiscard]] FileURL home() const override { return at(QStringLiteral("/Users/me")); }
    [[nodiscard]] FileURL temporary() const override { return at(QStringLiteral("/tmp")); }
    [[nodiscard]] FileURL system(const QString &absolutePath) const override
    {
        return absolutePath.endsWith(u'/') ? at(absolutePath)
                                           : FileURL::file(root.path() + absolutePath);
    }
};
