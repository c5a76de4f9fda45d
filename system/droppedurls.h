#pragma once

#include "platform/fileurl.h"

#include <QByteArray>
#include <QList>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

/// The kinds of content that a drag can offer, as far as drops here care.
enum class DropContent { FileURL, PlainText };

/// One dragged thing that can be asked for its data.
class DropItemProvider {
public:
    virtual ~DropItemProvider() = default;
    /// Told once, on any thread: the file URL's bytes, or nothing.
    using LoadCompletion = std::function<void(const std::optional<QByteArray> &)>;
    virtual void loadFileURL(LoadCompletion completion) = 0;
};

/// What a drag over a drop target carries.
class DropInfo {
public:
    virtual ~DropInfo() = default;
    [[nodiscard]] virtual bool hasItems(DropContent content) const = 0;
    [[nodiscard]] virtual QList<std::shared_ptr<DropItemProvider>> fileURLProviders() const = 0;
};

/// Gathers URLs from loads that finish on any thread, in any order.
class CompanionURLCollector {
public:
    void append(const FileURL &url);
    [[nodiscard]] QList<FileURL> snapshot() const;

private:
    mutable std::mutex m_lock;
    QList<FileURL> m_urls;
};

/// Loads every file URL of a drop and then, on the main thread, hands over those that could be
/// read, in the order in which their loads finished. Not called when there were none.
void collectDroppedFileURLs(const DropInfo &info,
                            std::function<void(const QList<FileURL> &)> completion);

/// The drop handler of a folder's row, and of everything else that only takes files.
struct FolderRowDropDelegate {
    std::function<void(bool)> setTargeted{};
    std::function<void(const QList<FileURL> &)> onDrop{};

    [[nodiscard]] bool validateDrop(const DropInfo &info) const;
    bool performDrop(const DropInfo &info) const; ///< always true
    void dropEntered(const DropInfo &info) const;
    void dropExited() const;
};

/// The drop handler of a folder's items as a whole.
using FolderGridDropDelegate = FolderRowDropDelegate;
