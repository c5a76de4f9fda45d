#pragma once

#include "platform/userdefaults.h"

/// A domain of the system's user defaults: the program's own, or another's by its name.
class MacUserDefaults final : public UserDefaults {
public:
    MacUserDefaults() = default; ///< the program's own
    explicit MacUserDefaults(const QString &suite)
        : m_suite(suite)
    {
    }

    [[nodiscard]] std::optional<QVariantList> array(const QString &key) const override;
    void setArray(const QString &key, const QVariantList &value) override;
    [[nodiscard]] qint64 integer(const QString &key) const override;
    void setInteger(const QString &key, qint64 value) override;
    void synchronize() override;

private:
    QString m_suite; ///< empty for the program's own
};
