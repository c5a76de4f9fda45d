#pragma once

#include <QString>

#include <optional>

// Foundation's own answers, to hold the program's portable rules against.

[[nodiscard]] std::optional<uint> foundationScannedHex(const QString &text);
[[nodiscard]] QString foundationPathExtension(const QString &path);
[[nodiscard]] QString foundationLastPathComponent(const QString &path);
[[nodiscard]] QString foundationStandardizedPath(const QString &path);
