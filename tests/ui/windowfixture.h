#pragma once

#include "i18n/translations.h"
#include "tests/store/storefixture.h"
#include "ui/companionviewmodel.h"
#include "ui/picturestore.h"

#include <QAccessible>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

/// The window over a store of fakes, offscreen, and what a user does with mouse and keyboard.
struct WindowFixture : StoreFixture {
    WindowFixture();

    /// Writes the library, starts the store and opens the window. False when there is no window.
    [[nodiscard]] bool open(const QList<DockFolder> &folders);
    /// The two halves of it: the second makes the window, which is not painted yet.
    void start(const QList<DockFolder> &folders);
    [[nodiscard]] bool makeWindow();

    [[nodiscard]] QQuickItem *named(const char *objectName) const;
    /// What assistive programs find under a role and a name and a user can see; null: nothing.
    [[nodiscard]] QAccessibleInterface *control(QAccessible::Role role, const QString &name) const;
    [[nodiscard]] QQuickItem *item(QAccessible::Role role, const QString &name) const;
    [[nodiscard]] QQuickItem *button(const QString &name) const;
    [[nodiscard]] QQuickItem *row(const QString &folderName) const;
    [[nodiscard]] QString caption(const QString &folderName) const;
    [[nodiscard]] QStringList rowNames() const;
    [[nodiscard]] QString nameFieldText() const;

    /// What an expression in the window's own words comes to.
    [[nodiscard]] QVariant evaluate(const QString &expression) const;
    /// Whether the ring of the keyboard is shown in it or in something that it holds.
    [[nodiscard]] static bool hasRing(QQuickItem *item);
    /// An item below another by its name, shown or not; null: there is none.
    [[nodiscard]] static QQuickItem *part(QQuickItem *item, const char *objectName);
    [[nodiscard]] static QPoint centre(const QQuickItem *item);
    void click(const QQuickItem *item) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    /// What a key that is held down sends after press(): repetitions of it.
    void hold(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString &text) const;
    /// Opens a menu by its button and chooses an entry.
    [[nodiscard]] bool choose(const QString &menu, const QString &entry) const;
    /// Replaces what is in the name field and presses Return.
    void rename(const QString &text) const;
    [[nodiscard]] bool isOpen(const char *dialog) const;

    Translations translations;
    PictureStore pictures;
    std::unique_ptr<CompanionViewModel> model;
    QQmlApplicationEngine engine;
    QQuickWindow *window = nullptr;

private:
    void placeRows() const;
};

/// To be called first by every test function: a warning is a failure.
void failOnWindowWarnings();
