#include "platform/xmlpropertylist.h"

#include "platform/propertylistrules.h"

#include <QLocale>
#include <QXmlStreamReader>

#include <cmath>
#include <limits>

namespace {

std::optional<quint64> unsignedNumber(const QString &digits, int base)
{
    const bool startsWithDigit = !digits.isEmpty() && digits.front().isLetterOrNumber();
    bool ok = false;
    const quint64 number = digits.toULongLong(&ok, base);
    return ok && startsWithDigit ? std::optional(number) : std::nullopt;
}

// A sign, then decimal digits or "0x" and hexadecimal ones.
std::optional<QVariant> integerFrom(const QString &text)
{
    QString digits = text.trimmed();
    const bool isNegative = digits.startsWith(u'-');
    if (isNegative || digits.startsWith(u'+'))
        digits.remove(0, 1);
    const bool isHex = digits.startsWith(QLatin1StringView("0x"), Qt::CaseInsensitive);
    const std::optional<quint64> number
        = isHex ? unsignedNumber(digits.sliced(2), 16) : unsignedNumber(digits, 10);
    constexpr quint64 largest = std::numeric_limits<qint64>::max();
    if (!number || (isNegative && *number > largest + 1))
        return std::nullopt;
    if (isNegative)
        return QVariant(static_cast<qint64>(0 - *number));
    if (*number > largest)
        return QVariant(*number);
    return QVariant(static_cast<qint64>(*number));
}

std::optional<QVariant> realFrom(const QString &text)
{
    QString number = text.trimmed().toLower();
    number.replace(QLatin1StringView("infinity"), QLatin1StringView("inf"));
    bool ok = false;
    const double value = QLocale::c().toDouble(number, &ok);
    return ok ? std::optional(QVariant(value)) : std::nullopt;
}

std::optional<QVariant> dateFrom(const QString &text)
{
    const QString date = text.trimmed();
    const QDateTime value = QDateTime::fromString(date, Qt::ISODate);
    if (!value.isValid() || !date.endsWith(u'Z'))
        return std::nullopt;
    return QVariant(value.toUTC());
}

class XMLReader {
public:
    XMLReader(QByteArrayView bytes, const QString &path)
        : m_xml(bytes.toByteArray())
        , m_path(path)
    {
    }

    QVariant read()
    {
        requireElement();
        const bool isWrapped = m_xml.name() == u"plist";
        if (isWrapped)
            requireElement();
        QVariant value = readValue(0);
        if (isWrapped && nextElement())
            fail(QCoreApplication::translate("PlatformError", "More than one value"));
        while (!m_xml.atEnd() && !m_xml.hasError())
            m_xml.readNext();
        if (m_xml.hasError())
            fail(m_xml.errorString());
        return value;
    }

private:
    [[noreturn]] void fail(const QString &reason) const
    {
        throw malformedPropertyList(m_path,
                                    QCoreApplication::translate("PlatformError", "%1 (line %2)")
                                        .arg(reason, QLocale().toString(m_xml.lineNumber())));
    }

    // Moves to the next element inside the current one. False at the current one's end. Text
    // between elements means nothing.
    bool nextElement()
    {
        const bool isThere = m_xml.readNextStartElement();
        if (m_xml.hasError())
            fail(m_xml.errorString());
        return isThere;
    }

    void requireElement()
    {
        if (!nextElement())
            fail(QCoreApplication::translate("PlatformError", "No value"));
    }

    QString readText()
    {
        QString text = m_xml.readElementText();
        if (m_xml.hasError())
            fail(m_xml.errorString());
        return text;
    }

    QVariant readValue(int depth)
    {
        if (depth > deepestPropertyList)
            fail(QCoreApplication::translate("PlatformError", "Nested too deeply"));
        const QString name = m_xml.name().toString();
        if (name == u"dict")
            return readDictionary(depth);
        if (name == u"array")
            return readArray(depth);
        const QString text = readText();
        const std::optional<QVariant> value = scalarFrom(name, text);
        if (!value)
            fail(QCoreApplication::translate("PlatformError", "Unexpected <%1>%2")
                     .arg(name, text.left(40)));
        return *value;
    }

    [[nodiscard]] static std::optional<QVariant> scalarFrom(const QString &name,
                                                            const QString &text)
    {
        if (name == u"string")
            return QVariant(text);
        if (name == u"integer")
            return integerFrom(text);
        if (name == u"real")
            return realFrom(text);
        if (name == u"date")
            return dateFrom(text);
        if (name == u"data") // skips what is not Base64, as every reader of this format does
            return QVariant(QByteArray::fromBase64(text.toLatin1()));
        if (name == u"true" || name == u"false")
            return QVariant(name == u"true");
        return std::nullopt;
    }

    QVariantMap readDictionary(int depth)
    {
        QVariantMap map;
        while (nextElement()) {
            if (m_xml.name() != u"key")
                fail(QStringLiteral("A dictionary value without a key"));
            const QString key = readText();
            requireElement();
            map.insert(key, readValue(depth + 1));
        }
        return map;
    }

    QVariantList readArray(int depth)
    {
        QVariantList list;
        while (nextElement())
            list.append(readValue(depth + 1));
        return list;
    }

    QXmlStreamReader m_xml;
    QString m_path;
};

// Neither raw nor escaped may XML hold the other control characters and non-characters: they are
// left out, for no reader could be told of them.
bool isXMLCharacter(QChar c)
{
    const char16_t u = c.unicode();
    return u >= 0x20 ? u < 0xfffe : u == u'\t' || u == u'\n' || u == u'\r';
}

QByteArray escapedText(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (c == u'&')
            result += QStringLiteral("&amp;");
        else if (c == u'<')
            result += QStringLiteral("&lt;");
        else if (c == u'>')
            result += QStringLiteral("&gt;");
        else if (c == u'\r') // readers turn a raw one into a line feed
            result += QStringLiteral("&#13;");
        else if (isXMLCharacter(c))
            result += c;
    }
    return result.toUtf8();
}

QByteArray realText(double value)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value > 0 ? "+infinity" : "-infinity";
    return QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
}

// The format has whole seconds.
QByteArray dateText(const QDateTime &date)
{
    QDateTime whole = date.toUTC();
    whole = whole.addMSecs(-whole.time().msec());
    return whole.toString(Qt::ISODate).toLatin1();
}

class XMLWriter {
public:
    QByteArray write(const QVariant &value)
    {
        m_out = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
)";
        writeValue(value, 0);
        return m_out + "</plist>\n";
    }

private:
    void writeLine(int depth, QByteArrayView line)
    {
        m_out.append(depth, '\t').append(line).append('\n');
    }

    void writeElement(int depth, QByteArrayView name, QByteArrayView content)
    {
        m_out.append(depth, '\t').append('<').append(name).append('>');
        m_out.append(content).append("</").append(name).append(">\n");
    }

    void writeValue(const QVariant &value, int depth)
    {
        switch (value.typeId()) {
        case QMetaType::QVariantMap:
            return writeDictionary(value.toMap(), depth);
        case QMetaType::QVariantList:
            return writeArray(value.toList(), depth);
        case QMetaType::QString:
            return writeElement(depth, "string", escapedText(value.toString()));
        case QMetaType::Bool:
            return writeLine(depth, value.toBool() ? "<true/>" : "<false/>");
        case QMetaType::Int:
        case QMetaType::LongLong:
            return writeElement(depth, "integer", QByteArray::number(value.toLongLong()));
        case QMetaType::UInt:
        case QMetaType::ULongLong:
            return writeElement(depth, "integer", QByteArray::number(value.toULongLong()));
        case QMetaType::Double:
            return writeElement(depth, "real", realText(value.toDouble()));
        case QMetaType::QDateTime:
            return writeElement(depth, "date", dateText(value.toDateTime()));
        case QMetaType::QByteArray:
            return writeData(value.toByteArray(), depth);
        default:
            throw unwritableValue(value.typeName());
        }
    }

    void writeDictionary(const QVariantMap &map, int depth)
    {
        if (map.isEmpty())
            return writeLine(depth, "<dict/>");
        writeLine(depth, "<dict>");
        for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
            writeElement(depth + 1, "key", escapedText(entry.key()));
            writeValue(entry.value(), depth + 1);
        }
        writeLine(depth, "</dict>");
    }

    void writeArray(const QVariantList &list, int depth)
    {
        if (list.isEmpty())
            return writeLine(depth, "<array/>");
        writeLine(depth, "<array>");
        for (const QVariant &value : list)
            writeValue(value, depth + 1);
        writeLine(depth, "</array>");
    }

    void writeData(const QByteArray &data, int depth)
    {
        constexpr qsizetype lineLength = 68;
        const QByteArray base64 = data.toBase64();
        writeLine(depth, "<data>");
        for (qsizetype at = 0; at < base64.size(); at += lineLength)
            writeLine(depth, base64.mid(at, lineLength));
        writeLine(depth, "</data>");
    }

    QByteArray m_out;
};

} // namespace

QVariant parseXMLPropertyList(QByteArrayView bytes, const QString &path)
{
    return XMLReader(bytes, path).read();
}

QByteArray serializeXMLPropertyList(const QVariant &value)
{
    return XMLWriter().write(value);
}
