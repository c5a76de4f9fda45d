#pragma once

#include "platform/directorywatcher.h"

#include <QHash>

#include <memory>

/// Watches nothing: the test calls change().
struct FakeDirectoryWatcher final : DirectoryWatcher {
    using Watches = QHash<quint64, std::pair<FileURL, std::function<void()>>>;

    bool canWatch = true;
    QList<FileURL> watched{}; ///< every directory asked for, in order
    std::shared_ptr<Watches> watches = std::make_shared<Watches>(); ///< those that still run

    /// Something changed in every watched directory.
    void change()
    {
        const QList<quint64> ids = watches->keys();
        for (const quint64 id : ids) {
            if (const auto watch = watches->constFind(id); watch != watches->constEnd())
                std::function<void()>(watch->second)();
        }
    }

    [[nodiscard]] std::unique_ptr<DirectoryWatch> watch(const FileURL &directory,
                                                        std::function<void()> changed) override
    {
        watched.append(directory);
        if (!canWatch)
            return nullptr;
        const quint64 id = ++m_last;
        watches->insert(id, {directory, std::move(changed)});
        return std::make_unique<Watch>(watches, id);
    }

private:
    struct Watch final : DirectoryWatch {
        Watch(std::shared_ptr<Watches> all, quint64 number)
            : watches(std::move(all))
            , id(number)
        {
        }
        Watch(const Watch &) = delete;
        Watch &operator=(const Watch &) = delete;
        ~Watch() override { watches->remove(id); }

        std::shared_ptr<Watches> watches;
        quint64 id;
    };

    quint64 m_last = 0;
};
