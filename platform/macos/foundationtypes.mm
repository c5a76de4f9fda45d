#include "platform/macos/foundationtypes.h"

#include <QDateTime>

#include <cmath>

namespace {

id arrayObject(const QVariantList &values)
{
    NSMutableArray *array = [NSMutableArray array];
    for (const QVariant &value : values) {
        id object = propertyListObject(value);
        if (!object)
            return nil;
        [array addObject:object];
    }
    return array;
}

id dictionaryObject(const QVariantMap &values)
{
    NSMutableDictionary *dictionary = [NSMutableDictionary dictionary];
    for (auto entry = values.cbegin(); entry != values.cend(); ++entry) {
        id object = propertyListObject(entry.value());
        if (!object)
            return nil;
        [dictionary setObject:object forKey:nsString(entry.key())];
    }
    return dictionary;
}

NSData *dataObject(const QByteArray &bytes)
{
    return [NSData dataWithBytes:bytes.constData() length:static_cast<NSUInteger>(bytes.size())];
}

NSDate *dateObject(const QDateTime &date)
{
    return
        [NSDate dateWithTimeIntervalSince1970:static_cast<double>(date.toMSecsSinceEpoch()) / 1000];
}

QVariant listFrom(NSArray *array)
{
    QVariantList values;
    for (id object in array)
        values.append(variantFrom(object));
    return values;
}

QVariant mapFrom(NSDictionary *dictionary)
{
    QVariantMap values;
    for (id key in dictionary) {
        if ([key isKindOfClass:[NSString class]])
            values.insert(textFrom(key), variantFrom([dictionary objectForKey:key]));
    }
    return values;
}

// A boolean is a number that differs from 0 and 1 in nothing but being one of two fixed objects;
// its encoding is that of a char.
bool isBoolean(NSNumber *number)
{
    return number == [NSNumber numberWithBool:YES] || number == [NSNumber numberWithBool:NO];
}

QVariant numberFrom(NSNumber *number)
{
    if (isBoolean(number))
        return static_cast<bool>([number boolValue]);
    const char encoding = *[number objCType];
    if (encoding == *@encode(double) || encoding == *@encode(float))
        return [number doubleValue];
    if (encoding == *@encode(unsigned long long) && [number longLongValue] < 0)
        return static_cast<quint64>([number unsignedLongLongValue]);
    return static_cast<qint64>([number longLongValue]);
}

QVariant bytesFrom(NSData *data)
{
    return QByteArray(static_cast<const char *>([data bytes]),
                      static_cast<qsizetype>([data length]));
}

QVariant dateFrom(NSDate *date)
{
    return QDateTime::fromMSecsSinceEpoch(std::llround([date timeIntervalSince1970] * 1000),
                                          Qt::UTC);
}

} // namespace

NSString *nsString(const QString &text)
{
    return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(text.utf16())
                                   length:static_cast<NSUInteger>(text.size())];
}

QString textFrom(NSString *string)
{
    const NSUInteger length = [string length];
    QString text(static_cast<qsizetype>(length), Qt::Uninitialized);
    [string getCharacters:reinterpret_cast<unichar *>(text.data()) range:NSMakeRange(0, length)];
    return text;
}

NSURL *nsURL(const FileURL &url)
{
    if (!url.isFileURL())
        return [NSURL URLWithString:nsString(url.text())];
    return [NSURL fileURLWithPath:nsString(url.path()) isDirectory:url.hasDirectoryPath()];
}

FileURL fileURLFrom(NSURL *url) { return FileURL::fromValidText(textFrom([url absoluteString])); }

id propertyListObject(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return nsString(value.toString());
    case QMetaType::Bool:
        return [NSNumber numberWithBool:value.toBool()];
    case QMetaType::Int:
    case QMetaType::LongLong:
        return [NSNumber numberWithLongLong:value.toLongLong()];
    case QMetaType::ULongLong:
        return [NSNumber numberWithUnsignedLongLong:value.toULongLong()];
    case QMetaType::Double:
        return [NSNumber numberWithDouble:value.toDouble()];
    case QMetaType::QByteArray:
        return dataObject(value.toByteArray());
    case QMetaType::QDateTime:
        return dateObject(value.toDateTime());
    case QMetaType::QVariantList:
        return arrayObject(value.toList());
    case QMetaType::QVariantMap:
        return dictionaryObject(value.toMap());
    default:
        return nil;
    }
}

QVariant variantFrom(id object)
{
    if ([object isKindOfClass:[NSString class]])
        return textFrom(object);
    if ([object isKindOfClass:[NSNumber class]])
        return numberFrom(object);
    if ([object isKindOfClass:[NSArray class]])
        return listFrom(object);
    if ([object isKindOfClass:[NSDictionary class]])
        return mapFrom(object);
    if ([object isKindOfClass:[NSData class]])
        return bytesFrom(object);
    if ([object isKindOfClass:[NSDate class]])
        return dateFrom(object);
    return {};
}

PlatformError platformErrorFrom(NSError *error)
{
    const QString reason = textFrom([error localizedDescription]);
    return reason.isEmpty() ? PlatformError::withoutReason() : PlatformError(reason);
}
