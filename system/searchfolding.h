#pragma once

#include <QByteArray>
#include <QStringView>

/// The UTF-8 text in which a search looks: the same for texts that differ only in case or in how
/// their accents are composed. The accents themselves count.
[[nodiscard]] QByteArray foldedForSearch(const QString &text);
