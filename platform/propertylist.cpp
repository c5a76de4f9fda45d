#include "platform/propertylist.h"

#include "platform/binarypropertylist.h"
#include "platform/xmlpropertylist.h"

QVariant parsePropertyList(QByteArrayView bytes, const QString &path)
{
    return isBinaryPropertyList(bytes) ? parseBinaryPropertyList(bytes, path)
                                       : parseXMLPropertyList(bytes, path);
}

QByteArray serializePropertyList(const QVariant &value, PropertyListFormat format)
{
    return format == PropertyListFormat::Binary ? serializeBinaryPropertyList(value)
                                                : serializeXMLPropertyList(value);
}
