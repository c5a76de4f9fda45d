#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

/// What the appearance pickers offer, cell by cell, and which cell stands for a folder's values. A
/// value is empty, or 0, where the folder has none.
class AppearanceOptions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int symbolCellCount READ symbolCellCount CONSTANT)
    Q_PROPERTY(int colorCellCount READ colorCellCount CONSTANT)
    Q_PROPERTY(int gridCellCount READ gridCellCount CONSTANT)

public:
    enum class SymbolKind { NoSymbol, Symbol, CustomImage };
    Q_ENUM(SymbolKind)
    enum class ColorKind { Palette, Custom, Automatic };
    Q_ENUM(ColorKind)

    using QObject::QObject;

    /// The symbols a folder can have, in their order.
    [[nodiscard]] static QStringList offeredSymbols();
    /// The colours a folder can be given with one press, as "#RRGGBB".
    [[nodiscard]] static QStringList extendedPalette();

    // "No symbol", the offered symbols, the custom image.

    [[nodiscard]] static int symbolCellCount();
    /// The cell that stands for a folder's icon; -1: a symbol that is not offered.
    Q_INVOKABLE [[nodiscard]] static int symbolCell(const QString &symbol, bool hasCustomIcon);
    Q_INVOKABLE [[nodiscard]] static SymbolKind symbolKind(int cell);
    /// The symbol that choosing the cell gives to the folder.
    Q_INVOKABLE [[nodiscard]] static QString symbolValue(int cell);
    /// The symbol that the cell shows.
    Q_INVOKABLE [[nodiscard]] static QString symbolShown(int cell);
    Q_INVOKABLE [[nodiscard]] static QString symbolName(int cell);

    // The palette, the custom colour, no colour.

    [[nodiscard]] static int colorCellCount();
    /// The cell that stands for a folder's colour, however its hexadecimal text is written.
    Q_INVOKABLE [[nodiscard]] static int colorCell(const QString &hex);
    Q_INVOKABLE [[nodiscard]] static ColorKind colorKind(int cell);
    Q_INVOKABLE [[nodiscard]] static QString colorValue(int cell);
    Q_INVOKABLE [[nodiscard]] static QString colorName(int cell);
    /// The text as a colour text is written, "#RRGGBB"; empty when it is none.
    Q_INVOKABLE [[nodiscard]] static QString plainHex(const QString &hex);
    /// What a colour panel stands at: the colour; the first of the palette when it is none.
    [[nodiscard]] static QColor colorOrFirst(const QString &hex);
    /// The opacity of a black ground between the colour and a white symbol on it, so that the
    /// symbol stands out by 3:1 at least.
    Q_INVOKABLE [[nodiscard]] static qreal groundOpacity(const QString &hex);

    // Automatic, two columns, three, four.

    [[nodiscard]] static int gridCellCount();
    /// -1: a number of columns that is not offered.
    Q_INVOKABLE [[nodiscard]] static int gridCell(int columns);
    Q_INVOKABLE [[nodiscard]] static int gridValue(int cell);
    Q_INVOKABLE [[nodiscard]] static QString gridName(int cell);
};
