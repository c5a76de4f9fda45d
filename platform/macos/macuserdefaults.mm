#include "platform/macos/macuserdefaults.h"

#include "platform/macos/foundationtypes.h"

namespace {

// Opened anew for each call: there are few, and an object that nobody keeps needs no owner. Nil for
// a domain that cannot be opened; what is then asked of it does nothing.
NSUserDefaults *defaultsOf(const QString &suite)
{
    if (suite.isEmpty())
        return [NSUserDefaults standardUserDefaults];
    return [[[NSUserDefaults alloc] initWithSuiteName:nsString(suite)] autorelease];
}

} // namespace

std::optional<QVariantList> MacUserDefaults::array(const QString &key) const
{
    @autoreleasepool {
        NSArray *array = [defaultsOf(m_suite) arrayForKey:nsString(key)];
        if (!array)
            return std::nullopt;
        return variantFrom(array).toList();
    }
}

void MacUserDefaults::setArray(const QString &key, const QVariantList &value)
{
    @autoreleasepool {
        // Setting nil would remove the key, and any object but a property list raises an exception.
        if (id array = propertyListObject(value))
            [defaultsOf(m_suite) setObject:array forKey:nsString(key)];
    }
}

qint64 MacUserDefaults::integer(const QString &key) const
{
    @autoreleasepool {
        return [defaultsOf(m_suite) integerForKey:nsString(key)];
    }
}

void MacUserDefaults::setInteger(const QString &key, qint64 value)
{
    @autoreleasepool {
        [defaultsOf(m_suite) setInteger:value forKey:nsString(key)];
    }
}

void MacUserDefaults::synchronize()
{
    @autoreleasepool {
        [defaultsOf(m_suite) synchronize];
    }
}
