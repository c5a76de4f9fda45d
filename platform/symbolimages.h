#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QSize>
#include <QString>

/// How a symbol is to look. Points are device-independent pixels.
struct SymbolLook {
    qreal pointSize = 13; ///< of the text that it would stand in
    QFont::Weight weight = QFont::Normal;
    qreal pixelRatio = 1;
    QColor color{};
    QColor secondaryColor{}; ///< of the shape behind the mark; invalid: the mark is cut out of it

    bool operator==(const SymbolLook &) const = default;
};

/// Draws the system's symbol of that name ("folder.fill") into the middle of an image of so many
/// pixels. A null image when the system has none of that name. Main thread.
[[nodiscard]] QImage symbolImage(const QString &name, const SymbolLook &look, const QSize &pixels);
