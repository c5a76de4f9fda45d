#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// Bytes that a library file holds as Base64. Those that were read from one stay there, encoded,
/// until they are asked for: most of a library is pictures, and few of them are looked at. A value;
/// copies share their memory.
class Base64Bytes {
public:
    Base64Bytes() = default;
    Base64Bytes(const QByteArray &bytes); // NOLINT(google-explicit-constructor): it is these bytes

    /// What a JSON string stands for that was read from `file`, with its quotes, and is Base64: the
    /// whole file is kept.
    [[nodiscard]] static Base64Bytes inFile(const QByteArray &file, QByteArrayView string);

    /// Decoded anew each time, unless they were given so.
    [[nodiscard]] QByteArray bytes() const;
    [[nodiscard]] bool isEmpty() const;

    /// Lets go of the file.
    void detach();

    /// Whether both are the same memory, which tells at once that they are equal.
    [[nodiscard]] bool isSharedWith(const Base64Bytes &other) const;
    bool operator==(const Base64Bytes &other) const;

private:
    QByteArray m_memory; ///< the bytes, or the file
    QByteArrayView m_string{}; ///< in the file, with its quotes; null: none
};
