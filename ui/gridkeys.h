#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// Where the keys lead that walk through a grid of cells.
class GridKeys : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// The cell that a key, a Qt::Key, leads to from `cell` in lines of `columns` cells: `cell`
    /// itself where it ends there, -1 when it is no such key. Where the last line is too short, it
    /// leads to the last cell. The keys for a page lead nowhere when `linesPerPage` is 0.
    Q_INVOKABLE [[nodiscard]] static int cellAfterKey(int key, int cell, int count, int columns,
                                                      int linesPerPage, bool isMirrored);
};
