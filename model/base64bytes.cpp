#include "model/base64bytes.h"

#include "model/base64.h"
#include "model/jsonreader.h"

namespace {

constexpr qsizetype quotes = 2;

bool isSameMemory(QByteArrayView a, QByteArrayView b)
{
    return a.data() == b.data() && a.size() == b.size();
}

} // namespace

Base64Bytes::Base64Bytes(const QByteArray &bytes)
    : m_memory(bytes)
{
}

Base64Bytes Base64Bytes::inFile(const QByteArray &file, QByteArrayView string)
{
    Base64Bytes bytes(file);
    bytes.m_string = string;
    return bytes;
}

QByteArray Base64Bytes::bytes() const
{
    if (m_string.isNull())
        return m_memory;
    return bytesFromBase64(JSONReader(m_string).readUTF8()).value_or(QByteArray());
}

bool Base64Bytes::isEmpty() const
{
    return m_string.isNull() ? m_memory.isEmpty() : m_string.size() == quotes;
}

void Base64Bytes::detach()
{
    *this = Base64Bytes(bytes());
}

bool Base64Bytes::isSharedWith(const Base64Bytes &other) const
{
    return isSameMemory(m_string, other.m_string)
        && (!m_string.isNull() || isSameMemory(m_memory, other.m_memory));
}

bool Base64Bytes::operator==(const Base64Bytes &other) const
{
    return isSharedWith(other)
        || (!m_string.isNull() && !other.m_string.isNull() && m_string == other.m_string)
        || bytes() == other.bytes();
}
