#pragma once

#include <QString>

#include <optional>

/// A URL, nearly always of a file, that keeps the text it came with: percent escapes, decomposed
/// accents and a trailing slash are written back as they were read. Everything that compares or
/// shows a URL asks here. Two URLs are equal when their texts are.
class FileURL {
public:
    FileURL() = default; ///< empty text; names nothing

    /// The URL with that text, or nothing when the text is not a valid URL (see isURLText).
    [[nodiscard]] static std::optional<FileURL> fromText(const QString &text);
    /// For text that isURLText has already accepted.
    [[nodiscard]] static FileURL fromValidText(const QString &text);
    /// The URL of a file at an absolute path: no trailing slash.
    [[nodiscard]] static FileURL file(const QString &path);
    /// The URL of a directory at an absolute path: its text ends in a slash.
    [[nodiscard]] static FileURL directory(const QString &path);

    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] bool isFileURL() const;
    [[nodiscard]] bool hasDirectoryPath() const;
    /// The decoded path without a trailing slash ("/" alone keeps it).
    [[nodiscard]] QString path() const;
    /// `path` in the bytes that the escapes stand for, which need not be UTF-8.
    [[nodiscard]] QByteArray nativePath() const;
    /// `path` without dot segments and repeated slashes. Links are not followed.
    [[nodiscard]] QString standardizedPath() const;
    [[nodiscard]] QString lastPathComponent() const;
    /// Without the dot; empty when there is none.
    [[nodiscard]] QString pathExtension() const;
    /// The last path component without its extension: what a user calls the file.
    [[nodiscard]] QString displayName() const;

    /// One more path component, which is escaped as needed.
    [[nodiscard]] FileURL appendingFile(const QString &component) const;
    [[nodiscard]] FileURL appendingDirectory(const QString &component) const;
    /// The same for a name in the file system's own bytes.
    [[nodiscard]] FileURL appendingNative(QByteArrayView name, bool isDirectory) const;
    [[nodiscard]] FileURL deletingLastPathComponent() const;

    bool operator==(const FileURL &) const = default;

private:
    friend class EntryURLs;

    [[nodiscard]] QStringView escapedPath() const;

    explicit FileURL(const QString &text)
        : m_text(text)
    {
    }

    QString m_text;
};

/// Makes the URLs of a directory's entries. For many of them quicker than the directory's own
/// functions, which look anew each time where its path ends.
class EntryURLs {
public:
    explicit EntryURLs(const FileURL &directory);

    [[nodiscard]] FileURL entry(QStringView name, bool isDirectory) const;
    /// The same for a name in the file system's own bytes.
    [[nodiscard]] FileURL entry(QByteArrayView name, bool isDirectory) const;

private:
    QString m_before; ///< ends in a slash
    QString m_after; ///< what follows the path: nearly always nothing
};

[[nodiscard]] size_t qHash(const FileURL &url, size_t seed = 0);

/// Whether a text is a URL by RFC 3986's characters: not empty, only characters a URL may hold,
/// every "%" followed by two hexadecimal digits, at most one "#".
[[nodiscard]] bool isURLText(QByteArrayView text);

/// An absolute path without "." and ".." segments, repeated and trailing slashes.
[[nodiscard]] QString standardizedPath(const QString &path);
