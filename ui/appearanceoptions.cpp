#include "ui/appearanceoptions.h"

#include "model/accentcolor.h"
#include "ui/contrast.h"

#include <algorithm>
#include <array>

namespace {

struct Option {
    const char *value;
    const char *name;
};

constexpr std::array symbols{
    Option{"star.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Star")},
    Option{"briefcase.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Briefcase")},
    Option{"house.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "House")},
    Option{"heart.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Heart")},
    Option{"book.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Book")},
    Option{"gamecontroller.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Game Controller")},
    Option{"music.note", QT_TRANSLATE_NOOP("AppearanceOptions", "Music Note")},
    Option{"photo.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Photo")},
    Option{"doc.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Document")},
    Option{"terminal.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Terminal")},
    Option{"cart.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Cart")},
    Option{"airplane", QT_TRANSLATE_NOOP("AppearanceOptions", "Airplane")},
    Option{"person.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Person")},
    Option{"globe", QT_TRANSLATE_NOOP("AppearanceOptions", "Globe")},
    Option{"gear", QT_TRANSLATE_NOOP("AppearanceOptions", "Gear")},
    Option{"cloud.fill", QT_TRANSLATE_NOOP("AppearanceOptions", "Cloud")},
};

constexpr std::array colors{
    Option{"#4F83D3", QT_TRANSLATE_NOOP("AppearanceOptions", "Blue")},
    Option{"#E05757", QT_TRANSLATE_NOOP("AppearanceOptions", "Red")},
    Option{"#4DAE72", QT_TRANSLATE_NOOP("AppearanceOptions", "Green")},
    Option{"#E0933C", QT_TRANSLATE_NOOP("AppearanceOptions", "Orange")},
    Option{"#9B6DD4", QT_TRANSLATE_NOOP("AppearanceOptions", "Purple")},
    Option{"#D45FA0", QT_TRANSLATE_NOOP("AppearanceOptions", "Pink")},
    Option{"#3DAEC0", QT_TRANSLATE_NOOP("AppearanceOptions", "Teal")},
    Option{"#7A6640", QT_TRANSLATE_NOOP("AppearanceOptions", "Brown")},
    Option{"#2D7D9A", QT_TRANSLATE_NOOP("AppearanceOptions", "Ocean")},
    Option{"#5B8C5A", QT_TRANSLATE_NOOP("AppearanceOptions", "Moss")},
    Option{"#C4A35A", QT_TRANSLATE_NOOP("AppearanceOptions", "Sand")},
    Option{"#8B5E3C", QT_TRANSLATE_NOOP("AppearanceOptions", "Chestnut")},
    Option{"#6B7B8D", QT_TRANSLATE_NOOP("AppearanceOptions", "Slate")},
};

struct GridOption {
    int columns;
    const char *name;
};

constexpr std::array gridSizes{
    GridOption{0, QT_TRANSLATE_NOOP("AppearanceOptions", "Auto")},
    GridOption{2, QT_TRANSLATE_NOOP("AppearanceOptions", "2 × 2")},
    GridOption{3, QT_TRANSLATE_NOOP("AppearanceOptions", "3 × 3")},
    GridOption{4, QT_TRANSLATE_NOOP("AppearanceOptions", "4 × 4")},
};

constexpr int symbolCount = int(symbols.size());
constexpr int colorCount = int(colors.size());
constexpr int noSymbolCell = 0;
constexpr int customImageCell = symbolCount + 1;
constexpr int customColorCell = colorCount;
constexpr int automaticColorCell = colorCount + 1;

template <size_t size> QString valueAt(const std::array<Option, size> &options, int place)
{
    const bool isThere = place >= 0 && size_t(place) < size;
    return isThere ? QString(QLatin1StringView(options.at(size_t(place)).value)) : QString();
}

template <size_t size> int placeOf(const std::array<Option, size> &options, const QString &value)
{
    const auto found = std::ranges::find_if(
        options, [&](const Option &option) { return value == QLatin1StringView(option.value); });
    return found == options.end() ? -1 : int(found - options.begin());
}

template <size_t size> QStringList valuesOf(const std::array<Option, size> &options)
{
    QStringList values;
    for (const Option &option : options)
        values.append(QLatin1StringView(option.value));
    return values;
}

bool isWhiteVisibleOn(const QColor &color, double groundOpacity)
{
    const QColor ground = Contrast::over(QColor::fromRgbF(0, 0, 0, float(groundOpacity)), color);
    return Contrast::ratio(Qt::white, ground) >= Contrast::forSymbols;
}

} // namespace

QStringList AppearanceOptions::offeredSymbols()
{
    return valuesOf(symbols);
}

QStringList AppearanceOptions::extendedPalette()
{
    return valuesOf(colors);
}

int AppearanceOptions::symbolCellCount()
{
    return customImageCell + 1;
}

int AppearanceOptions::symbolCell(const QString &symbol, bool hasCustomIcon)
{
    if (hasCustomIcon)
        return customImageCell;
    if (symbol.isEmpty())
        return noSymbolCell;
    const int index = placeOf(symbols, symbol);
    return index < 0 ? -1 : index + 1;
}

AppearanceOptions::SymbolKind AppearanceOptions::symbolKind(int cell)
{
    if (cell == noSymbolCell)
        return SymbolKind::NoSymbol;
    return cell == customImageCell ? SymbolKind::CustomImage : SymbolKind::Symbol;
}

QString AppearanceOptions::symbolValue(int cell)
{
    return symbolKind(cell) == SymbolKind::Symbol ? valueAt(symbols, cell - 1) : QString();
}

QString AppearanceOptions::symbolShown(int cell)
{
    switch (symbolKind(cell)) {
    case SymbolKind::NoSymbol:
        return QStringLiteral("square.grid.2x2");
    case SymbolKind::CustomImage:
        return QStringLiteral("photo.badge.plus");
    case SymbolKind::Symbol:
        break;
    }
    return symbolValue(cell);
}

QString AppearanceOptions::symbolName(int cell)
{
    switch (symbolKind(cell)) {
    case SymbolKind::NoSymbol:
        return tr("No symbol (show app grid)");
    case SymbolKind::CustomImage:
        return tr("Load custom image…");
    case SymbolKind::Symbol:
        break;
    }
    return cell > 0 && cell <= symbolCount ? tr(symbols.at(size_t(cell - 1)).name) : QString();
}

int AppearanceOptions::colorCellCount()
{
    return automaticColorCell + 1;
}

int AppearanceOptions::colorCell(const QString &hex)
{
    if (hex.isEmpty())
        return automaticColorCell;
    const int index = placeOf(colors, plainHex(hex));
    return index < 0 ? customColorCell : index;
}

AppearanceOptions::ColorKind AppearanceOptions::colorKind(int cell)
{
    if (cell == automaticColorCell)
        return ColorKind::Automatic;
    return cell == customColorCell ? ColorKind::Custom : ColorKind::Palette;
}

QString AppearanceOptions::colorValue(int cell)
{
    return valueAt(colors, cell);
}

QString AppearanceOptions::colorName(int cell)
{
    switch (colorKind(cell)) {
    case ColorKind::Custom:
        return tr("Custom Color…");
    case ColorKind::Automatic:
        return tr("Automatic");
    case ColorKind::Palette:
        break;
    }
    return cell >= 0 && cell < colorCount ? tr(colors.at(size_t(cell)).name) : QString();
}

QString AppearanceOptions::plainHex(const QString &hex)
{
    return plainHexText(hex);
}

QColor AppearanceOptions::colorOrFirst(const QString &hex)
{
    return colorFromHexText(hex).value_or(colorFromHexText(valueAt(colors, 0)).value_or(QColor()));
}

qreal AppearanceOptions::groundOpacity(const QString &hex)
{
    const QColor color = colorFromHexText(hex).value_or(QColor(Qt::gray));
    double opacity = 0;
    while (!isWhiteVisibleOn(color, opacity))
        opacity += 0.02;
    return opacity;
}

int AppearanceOptions::gridCellCount()
{
    return int(gridSizes.size());
}

int AppearanceOptions::gridCell(int columns)
{
    const auto found = std::ranges::find(gridSizes, columns, &GridOption::columns);
    return found == gridSizes.end() ? -1 : int(found - gridSizes.begin());
}

int AppearanceOptions::gridValue(int cell)
{
    return cell >= 0 && cell < gridCellCount() ? gridSizes.at(size_t(cell)).columns : 0;
}

QString AppearanceOptions::gridName(int cell)
{
    return cell >= 0 && cell < gridCellCount() ? tr(gridSizes.at(size_t(cell)).name) : QString();
}
