#pragma once

#include <QLocale>
#include <QStringView>

#include <compare>
#include <memory>
#include <vector>

/// Sort keys of names as a language orders them, whatever their case. Keys are made once per name,
/// so that sorting compares bytes and not text.
class CollationKeys {
public:
    /// Place of a key among the others. Its first bytes settle most comparisons.
    struct Key {
        quint64 prefix{};
        size_t offset{};
        size_t length{};
    };

    /// What a run of digits in a name counts as.
    enum class Digits { AsText, AsNumbers };

    /// The order of the locale's language; that of no language in particular for the C locale.
    explicit CollationKeys(const QLocale &locale, Digits digits = Digits::AsText);
    ~CollationKeys();
    Q_DISABLE_COPY_MOVE(CollationKeys)

    [[nodiscard]] Key add(QStringView name);
    [[nodiscard]] std::strong_ordering compare(const Key &a, const Key &b) const;

private:
    class Collator;
    std::unique_ptr<Collator> m_collator;
    std::vector<uchar> m_bytes; ///< of all keys, one after the other
    size_t m_used = 0;
};
