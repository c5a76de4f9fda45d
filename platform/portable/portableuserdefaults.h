#pragma once

#include "platform/userdefaults.h"

#include "platform/fileurl.h"

#include <QVariantMap>

/// A domain of defaults in a property-list file, XML or binary. Each question reads the file, for
/// others write there too, and each change replaces it whole, in its own form, with all other keys
/// as they were. A file that holds no dictionary reads as empty; before the first change it is put
/// aside under a name that ends in ".damaged".
class PortableUserDefaults final : public UserDefaults {
public:
    explicit PortableUserDefaults(const FileURL &file)
        : m_file(file)
    {
    }

    [[nodiscard]] std::optional<QVariantList> array(const QString &key) const override;
    void setArray(const QString &key, const QVariantList &value) override;
    [[nodiscard]] qint64 integer(const QString &key) const override;
    void setInteger(const QString &key, qint64 value) override;
    void synchronize() override { } // every change is in the file at once

private:
    [[nodiscard]] QVariant value(const QString &key) const;
    void setValue(const QString &key, const QVariant &value) const;

    FileURL m_file;
};
