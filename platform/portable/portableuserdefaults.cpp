#include "platform/portable/portableuserdefaults.h"

#include "platform/binarypropertylist.h"
#include "platform/error.h"
#include "platform/posix/posixfilesystem.h"
#include "platform/propertylist.h"

#include <QCoreApplication>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

struct Domain {
    QVariantMap values{};
    PropertyListFormat format = PropertyListFormat::Binary;
    bool isDamaged = false;
};

Domain parsedDomain(const QByteArray &bytes, const FileURL &file)
{
    Domain domain;
    if (!isBinaryPropertyList(bytes))
        domain.format = PropertyListFormat::XML;
    QVariant root;
    ignoringErrors([&] { root = parsePropertyList(bytes, file.path()); });
    domain.isDamaged = root.typeId() != QMetaType::QVariantMap;
    domain.values = root.toMap();
    return domain;
}

// Throws when there is a file that cannot be read.
Domain readDomain(const FileURL &file)
{
    const PosixFileSystem files;
    return files.exists(file) ? parsedDomain(files.read(file), file) : Domain();
}

void putAside(const FileURL &file)
{
    const PosixFileSystem files;
    const FileURL directory = file.deletingLastPathComponent();
    for (int number = 1; number < 1000; ++number) {
        const QString end = number == 1 ? QString() : QStringLiteral("-%1").arg(number);
        const FileURL aside
            = directory.appendingFile(file.lastPathComponent() + end + QStringLiteral(".damaged"));
        if (!files.isOccupied(aside))
            return files.move(file, aside);
    }
    throw PlatformError(
        QCoreApplication::translate("PlatformError", "Could not put “%1” aside").arg(file.path()));
}

qint64 leadingInteger(const QString &text)
{
    return std::strtoll(text.toLatin1().constData(), nullptr, 10);
}

qint64 truncated(double value)
{
    constexpr double beyond = 9223372036854775808.0;
    if (std::isnan(value))
        return 0;
    if (std::abs(value) < beyond)
        return static_cast<qint64>(value);
    return value > 0 ? std::numeric_limits<qint64>::max() : std::numeric_limits<qint64>::min();
}

} // namespace

QVariant PortableUserDefaults::value(const QString &key) const
{
    QVariant result;
    ignoringErrors([&] { result = readDomain(m_file).values.value(key); });
    return result;
}

void PortableUserDefaults::setValue(const QString &key, const QVariant &value) const
{
    ignoringErrors([&] {
        Domain domain = readDomain(m_file);
        domain.values.insert(key, value);
        const QByteArray bytes = serializePropertyList(domain.values, domain.format);
        if (domain.isDamaged)
            putAside(m_file);
        const PosixFileSystem files;
        files.createDirectories(m_file.deletingLastPathComponent());
        files.writeAtomically(m_file, bytes);
    });
}

std::optional<QVariantList> PortableUserDefaults::array(const QString &key) const
{
    const QVariant found = value(key);
    return found.typeId() == QMetaType::QVariantList ? std::optional(found.toList()) : std::nullopt;
}

void PortableUserDefaults::setArray(const QString &key, const QVariantList &value)
{
    setValue(key, value);
}

// As leniently as a Mac does.
qint64 PortableUserDefaults::integer(const QString &key) const
{
    const QVariant found = value(key);
    switch (found.typeId()) {
    case QMetaType::LongLong:
        return found.toLongLong();
    case QMetaType::Bool:
        return found.toBool() ? 1 : 0;
    case QMetaType::Double:
        return truncated(found.toDouble());
    case QMetaType::ULongLong:
        return std::numeric_limits<qint64>::max();
    case QMetaType::QString:
        return leadingInteger(found.toString());
    default:
        return 0;
    }
}

void PortableUserDefaults::setInteger(const QString &key, qint64 value)
{
    setValue(key, value);
}
