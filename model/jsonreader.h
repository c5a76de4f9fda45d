#pragma once

#include <QByteArrayView>
#include <QString>

#include <vector>

/// Thrown by a JSONReader that does not find what it was asked for.
struct InvalidJSON { };

/// Reads a JSON text (RFC 8259, in UTF-8) from front to end, strictly: the caller asks for the
/// value that it expects next, and anything else throws InvalidJSON. Nothing is read behind the
/// text, and its bytes must outlive the reader.
class JSONReader {
public:
    explicit JSONReader(QByteArrayView text)
        : m_next(text.begin())
        , m_end(text.end())
    {
    }

    /// An object. Calls `member` with each key; it must read the value, or skip it.
    template <typename Member> void readObject(Member member);
    /// An array. Calls `element` for each of its values; it must read it, or skip it.
    template <typename Element> void readArray(Element element);

    /// A string as UTF-8, without its escapes. Valid until the next string is read.
    [[nodiscard]] QByteArrayView readUTF8();
    [[nodiscard]] QString readString();
    /// A number that is an integer in value, however it is written (3, 3.0, 30e-1).
    [[nodiscard]] qint64 readInteger();
    /// Whether null is next, which is then read.
    [[nodiscard]] bool readNull();
    /// A value of any kind, checked to be JSON.
    void skipValue();
    /// Nothing but blanks is left.
    void readEnd();

    /// What has not been read; within readArray's `element`, from the first byte of the element.
    [[nodiscard]] QByteArrayView rest() const { return {m_next, m_end}; }
    /// Steps over bytes that are known to be a whole value.
    void skipBytes(qsizetype count) { m_next += count; }

private:
    static constexpr int maximumDepth = 512;

    void skipBlanks();
    bool readIf(char c); ///< after blanks
    void expect(char c); ///< after blanks
    void skipWord(QByteArrayView word);
    [[nodiscard]] QByteArrayView readNumber();
    void enter(char bracket);

    QByteArrayView readEscapedUTF8(const char *start);
    void copyPlainBlocks();
    void copyPlainCharacters();
    void copyMultibyteCharacter();
    void copyEscape();
    [[nodiscard]] char32_t readHexCharacter();
    void append(char32_t character);
    void makeRoom(size_t count);

    const char *m_next;
    const char *m_end;
    int m_depth{};
    std::vector<char> m_unescaped; ///< the string being read; only the front is in use
    size_t m_unescapedSize{};
};

template <typename Member> void JSONReader::readObject(Member member)
{
    enter('{');
    if (!readIf('}')) {
        do {
            skipBlanks();
            const QByteArrayView key = readUTF8();
            expect(':');
            member(key);
        } while (readIf(','));
        expect('}');
    }
    --m_depth;
}

template <typename Element> void JSONReader::readArray(Element element)
{
    enter('[');
    if (!readIf(']')) {
        do {
            skipBlanks();
            element();
        } while (readIf(','));
        expect(']');
    }
    --m_depth;
}
