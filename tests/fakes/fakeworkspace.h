#pragma once

#include "platform/workspace.h"

#include <QHash>

/// Opens nothing: notes what was asked for. Completions wait until the test calls completeAll().
struct FakeWorkspace final : Workspace {
    struct Opened {
        FileURL bundle{};
        Activation activation{};
        bool operator==(const Opened &) const = default;
    };

    QHash<QString, FileURL> applications{}; ///< installed ones, by bundle identifier
    QList<Opened> opened{};
    QList<OpenCompletion> completions{}; ///< not called yet
    QList<QUrl> openedURLs{};
    QList<QList<FileURL>> revealed{};
    QHash<FileURL, QImage> icons{};
    mutable int lookups = 0; ///< how often an application was asked for

    /// The system reports every launch so far as this.
    void completeAll(const std::optional<PlatformError> &result = std::nullopt)
    {
        for (const OpenCompletion &completion : std::exchange(completions, {})) {
            if (completion)
                completion(result);
        }
    }

    [[nodiscard]] std::optional<FileURL>
    applicationWithBundleIdentifier(const QString &bundleIdentifier) const override
    {
        ++lookups;
        const auto found = applications.constFind(bundleIdentifier);
        return found == applications.constEnd() ? std::nullopt : std::optional(*found);
    }

    void openApplication(const FileURL &bundle, Activation activation,
                         OpenCompletion completion) override
    {
        opened.append({.bundle = bundle, .activation = activation});
        completions.append(std::move(completion));
    }

    void openURL(const QUrl &url) override { openedURLs.append(url); }
    void reveal(const QList<FileURL> &urls) override { revealed.append(urls); }

    [[nodiscard]] QImage icon(const FileURL &url, int side) const override
    {
        const QImage image = icons.value(url);
        return image.isNull() ? image : image.scaled(side, side);
    }
};
