#pragma once

#include "system/droppedurls.h"

#include <utility>

/// A dragged thing whose load ends when the test says so.
struct FakeDropItem final : DropItemProvider {
    LoadCompletion completion{};

    void loadFileURL(LoadCompletion next) override { completion = std::move(next); }
    void finish(const std::optional<QByteArray> &data) const { completion(data); }
};

/// A drag as the test describes it.
struct FakeDropInfo final : DropInfo {
    QList<std::shared_ptr<FakeDropItem>> items{};
    bool hasFileURLs = false;
    bool hasPlainText = false;

    /// A drag of that many files.
    static FakeDropInfo withFiles(qsizetype count)
    {
        FakeDropInfo info;
        info.hasFileURLs = count > 0;
        for (qsizetype i = 0; i < count; ++i)
            info.items.append(std::make_shared<FakeDropItem>());
        return info;
    }
    static FakeDropInfo withPlainText()
    {
        FakeDropInfo info;
        info.hasPlainText = true;
        return info;
    }

    bool hasItems(DropContent content) const override
    {
        return content == DropContent::FileURL ? hasFileURLs : hasPlainText;
    }
    QList<std::shared_ptr<DropItemProvider>> fileURLProviders() const override
    {
        return {items.begin(), items.end()};
    }
};
