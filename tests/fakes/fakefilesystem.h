#pragma once

#include "platform/error.h"
#include "platform/posix/posixfilesystem.h"

#include <QHash>

#include <cerrno>
#include <functional>
#include <mutex>
#include <optional>

/// The real file system, with failures where the test wants them and a note of every call.
struct FakeFileSystem final : FileSystem {
    enum class Operation {
        Exists,
        IsOccupied,
        IsDirectory,
        IsDirectoryItself,
        Resolved,
        Contents,
        VisibleEntries,
        Identity,
        Read,
        Write,
        CreateDirectories,
        Copy, ///< noted with the target
        Move, ///< noted with the target
        Remove,
    };
    using Action = PlatformError::Action;
    struct Call {
        Operation operation{};
        QString path{};
        bool operator==(const Call &) const = default;
    };
    struct Failure {
        Operation operation{};
        QString pathEnd{}; ///< of the paths that fail; empty: all
        int errorNumber = ENOSPC;
    };

    PosixFileSystem files{};
    QList<Failure> failures{};
    QHash<QString, QList<DirectoryEntry>> listings{}; ///< visible entries that are not on the disk
    mutable QList<Call> calls{};
    mutable std::mutex callsMutex{}; ///< for the calls of other threads
    std::function<void(const Call &)> onCall{}; ///< before each operation; may throw

    void fail(Operation operation, const QString &pathEnd = {}, int errorNumber = ENOSPC)
    {
        failures.append({.operation = operation, .pathEnd = pathEnd, .errorNumber = errorNumber});
    }

    [[nodiscard]] qsizetype count(Operation operation) const
    {
        return std::ranges::count(calls, operation, &Call::operation);
    }

    using FileSystem::writeAtomically;

    [[nodiscard]] bool exists(const FileURL &url) const override
    {
        note(Operation::Exists, url);
        return files.exists(url);
    }
    [[nodiscard]] bool isOccupied(const FileURL &url) const override
    {
        note(Operation::IsOccupied, url);
        return files.isOccupied(url);
    }
    [[nodiscard]] bool isDirectory(const FileURL &url) const override
    {
        note(Operation::IsDirectory, url);
        return files.isDirectory(url);
    }
    [[nodiscard]] bool isDirectoryItself(const FileURL &url) const override
    {
        note(Operation::IsDirectoryItself, url);
        return files.isDirectoryItself(url);
    }
    [[nodiscard]] FileURL resolved(const FileURL &url) const override
    {
        note(Operation::Resolved, url);
        return files.resolved(url);
    }
    [[nodiscard]] QList<FileURL> contents(const FileURL &directory) const override
    {
        noteOrFail(Operation::Contents, Action::List, directory);
        return files.contents(directory);
    }
    [[nodiscard]] QList<DirectoryEntry> visibleEntries(const FileURL &directory) const override
    {
        noteOrFail(Operation::VisibleEntries, Action::List, directory);
        const auto madeUp = listings.constFind(directory.path());
        return madeUp == listings.cend() ? files.visibleEntries(directory) : *madeUp;
    }
    [[nodiscard]] std::optional<FileIdentity> identity(const FileURL &url) const override
    {
        note(Operation::Identity, url);
        return files.identity(url);
    }
    [[nodiscard]] QByteArray read(const FileURL &url) const override
    {
        noteOrFail(Operation::Read, Action::Read, url);
        return files.read(url);
    }
    void writeAtomically(const FileURL &url, std::span<const QByteArrayView> pieces) const override
    {
        noteOrFail(Operation::Write, Action::Write, url);
        files.writeAtomically(url, pieces);
    }
    void createDirectories(const FileURL &directory) const override
    {
        noteOrFail(Operation::CreateDirectories, Action::Create, directory);
        files.createDirectories(directory);
    }
    void copy(const FileURL &from, const FileURL &to) const override
    {
        noteOrFail(Operation::Copy, Action::Copy, to);
        files.copy(from, to);
    }
    void move(const FileURL &from, const FileURL &to) const override
    {
        noteOrFail(Operation::Move, Action::Move, to);
        files.move(from, to);
    }
    void remove(const FileURL &url) const override
    {
        noteOrFail(Operation::Remove, Action::Remove, url);
        files.remove(url);
    }

private:
    void note(Operation operation, const FileURL &url) const
    {
        const Call call{.operation = operation, .path = url.path()};
        {
            const std::lock_guard guard(callsMutex);
            calls.append(call);
        }
        if (onCall)
            onCall(call);
    }

    void noteOrFail(Operation operation, Action action, const FileURL &url) const
    {
        note(operation, url);
        for (const Failure &failure : failures) {
            if (failure.operation == operation && url.path().endsWith(failure.pathEnd)) {
                throw PlatformError::fromErrno(action, url.path(), failure.errorNumber);
            }
        }
    }
};
