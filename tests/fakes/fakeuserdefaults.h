#pragma once

#include "platform/userdefaults.h"

#include <QVariantMap>

/// A domain of defaults in memory.
struct FakeUserDefaults final : UserDefaults {
    QVariantMap values{};
    int writes = 0;
    int synchronizations = 0;

    [[nodiscard]] std::optional<QVariantList> array(const QString &key) const override
    {
        const QVariant value = values.value(key);
        if (value.typeId() != QMetaType::QVariantList)
            return std::nullopt;
        return value.toList();
    }

    void setArray(const QString &key, const QVariantList &value) override
    {
        ++writes;
        values.insert(key, value);
    }

    [[nodiscard]] qint64 integer(const QString &key) const override
    {
        return values.value(key).toLongLong();
    }

    void setInteger(const QString &key, qint64 value) override
    {
        ++writes;
        values.insert(key, value);
    }

    void synchronize() override { ++synchronizations; }
};
