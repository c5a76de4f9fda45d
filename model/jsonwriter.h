#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>
#include <QUuid>

/// Appends compact JSON to one buffer, which keeps its memory when it is cleared. What goes between
/// the values, keys included, is written as it stands.
class JSONWriter {
public:
    void writeRaw(QByteArrayView json);
    /// A string with what JSON wants escaped, and nothing else. Lone surrogates become U+FFFD.
    void writeString(QStringView text);
    void writeUUID(const QUuid &id);
    void writeBase64(QByteArrayView bytes);
    void writeInteger(qint64 value);

    [[nodiscard]] QByteArrayView json() const { return {m_buffer.constData(), m_size}; }
    [[nodiscard]] qsizetype size() const { return m_size; }
    void clear() { m_size = 0; }
    /// The buffer itself, cut to what was written; the writer is empty then.
    [[nodiscard]] QByteArray take();

private:
    char *
    room(qsizetype count); ///< the end of what was written, with at least that many bytes behind
    void commit(const char *end) { m_size = end - m_buffer.constData(); }

    QByteArray m_buffer; ///< longer than what was written
    qsizetype m_size{};
};
