#pragma once

#include "tests/ui/detailfixture.h"
#include "tests/ui/itemtree.h"
#include "ui/systempanels.h"

#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>

/// The appearance section of one folder in a window, offscreen, over a store of fakes.
struct AppearanceFixture : DetailFixture {
    AppearanceFixture();
    ~AppearanceFixture();

    /// Shows the first folder. False when there is no window.
    [[nodiscard]] bool open(const QList<DockFolder> &folders);
    [[nodiscard]] DockFolder stored(const DockFolder &folder) const;

    [[nodiscard]] QAccessibleInterface *control(QAccessible::Role role, const QString &name) const;
    [[nodiscard]] QAccessibleInterface *cell(const QString &name) const;
    /// The names of the cells of a picker that are checked.
    [[nodiscard]] QStringList checkedCells(const QString &picker) const;
    /// The accessible name of what has the focus.
    [[nodiscard]] QString focusedName() const;
    [[nodiscard]] QQuickItem *named(const char *objectName) const;
    /// The window's own open panel; null: it is not open.
    [[nodiscard]] QQuickWindow *openPanel() const;

    void click(const QAccessibleInterface *interface) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

    std::unique_ptr<SystemPanels> panels;
    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;
    QQuickItem *section = nullptr;
};
