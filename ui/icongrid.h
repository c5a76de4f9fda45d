#pragma once

#include <QImage>
#include <QList>
#include <QRect>
#include <QSize>
#include <QStringList>

/// A mini grid of icons, as small as a thumbnail: what it shows and its measures in device pixels.
struct IconGrid {
    QStringList urls{}; ///< of the items, by rows; what is past the last cell is not shown
    int rows{};
    int columns{};
    int spacing{};
    QSize size{}; ///< of the whole picture

    /// The side of each cell. All cells are equal squares of whole pixels.
    [[nodiscard]] int cellSide() const;
    /// The cells by rows, the whole of them in the middle of the picture.
    [[nodiscard]] QList<QRect> cells() const;
    /// Different for grids whose pictures differ.
    [[nodiscard]] QString key() const;
};

/// The grid with those icons in its first cells. All other cells, and those of null icons, hold
/// faint white squares.
[[nodiscard]] QImage drawnIconGrid(const IconGrid &grid, const QList<QImage> &icons);

/// What holds an icon's place: a rounded square.
[[nodiscard]] QImage drawnIconPlaceholder(int side, const QColor &color);
