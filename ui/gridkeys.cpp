#include "ui/gridkeys.h"

#include <algorithm>

namespace {

int cellByLines(int cell, int lines, int count, int columns)
{
    const int line = cell / columns;
    const int wanted = std::clamp(line + lines, 0, (count - 1) / columns);
    return std::min(cell + (wanted - line) * columns, count - 1);
}

} // namespace

int GridKeys::cellAfterKey(int key, int cell, int count, int columns, int linesPerPage,
                           bool isMirrored)
{
    if (count <= 0)
        return -1;
    const auto byCells
        = [=](int step) { return std::clamp(cell + (isMirrored ? -step : step), 0, count - 1); };
    switch (key) {
    case Qt::Key_Left:
        return byCells(-1);
    case Qt::Key_Right:
        return byCells(1);
    case Qt::Key_Up:
        return cellByLines(cell, -1, count, columns);
    case Qt::Key_Down:
        return cellByLines(cell, 1, count, columns);
    case Qt::Key_PageUp:
        return linesPerPage > 0 ? cellByLines(cell, -linesPerPage, count, columns) : -1;
    case Qt::Key_PageDown:
        return linesPerPage > 0 ? cellByLines(cell, linesPerPage, count, columns) : -1;
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return count - 1;
    default:
        return -1;
    }
}
