#pragma once

#include <QString>
#include <QVariantList>

#include <optional>

/// One domain of the user's defaults. Failures are silent, as the system's are: a value that cannot
/// be read is absent, one that cannot be written is lost.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// The array under `key`; nothing when there is none or the value is something else. Elements
    /// are property-list values (see propertylist.h).
    [[nodiscard]] virtual std::optional<QVariantList> array(const QString &key) const = 0;
    virtual void setArray(const QString &key, const QVariantList &value) = 0;
    /// 0 when absent.
    [[nodiscard]] virtual qint64 integer(const QString &key) const = 0;
    virtual void setInteger(const QString &key, qint64 value) = 0;
    /// Waits until other processes can see what was written.
    virtual void synchronize() = 0;
};
