#pragma once

#include <QColor>
#include <QString>

#include <optional>

/// The colour of an `accentColorHex` text, in sRGB and opaque, or nothing. "#" at both ends is
/// dropped; what is left must be six characters long. They are read as the system's scanner reads a
/// hexadecimal number: leading blanks and "0x" are skipped, and it stops at the first other
/// character.
[[nodiscard]] std::optional<QColor> colorFromHexText(const QString &text);

/// The same colour's text as colour texts are written, "#RRGGBB"; empty when it is none.
[[nodiscard]] QString plainHexText(const QString &text);

/// "#RRGGBB", or "#4F83D3" for a colour that has no sRGB form.
[[nodiscard]] QString hexTextFromColor(const QColor &color);
