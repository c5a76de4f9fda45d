#include "tests/ui/windowfixture.h"

#include "tests/ui/itemtree.h"
#include "ui/windowengine.h"

#include <QQmlContext>
#include <QQmlExpression>

#include <tuple>

void failOnWindowWarnings()
{
    // The offscreen platform warns that it ignores the window's least size.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
}

WindowFixture::WindowFixture()
{
    qputenv("QT_QUICK_BACKEND", "software");
    addPictureProviders(engine, workspace, pictures);
    addWindowTypes(engine);
}

bool WindowFixture::open(const QList<DockFolder> &folders)
{
    start(folders);
    if (!makeWindow())
        return false;
    window->requestActivate();
    return QTest::qWaitForWindowActive(window);
}

void WindowFixture::start(const QList<DockFolder> &folders)
{
    startWith(folders);
    // Not by the fake, whose notes are of what tests begin.
    model = std::make_unique<CompanionViewModel>(
        *store, pictures, [this] { return scanInstalledApplications(files.files, directories); });
}

bool WindowFixture::makeWindow()
{
    engine.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(model.get())}});
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Nestlet/Companion/CompanionView.qml")));
    if (engine.rootObjects().isEmpty())
        return false;
    window = qobject_cast<QQuickWindow *>(engine.rootObjects().first());
    return window != nullptr;
}

QQuickItem *WindowFixture::named(const char *objectName) const
{
    return descendant(window->contentItem(), [objectName](const QQuickItem *item) {
        return item->isVisible() && item->objectName() == QLatin1StringView(objectName);
    });
}

// Lists make and place their rows when the next frame is due.
void WindowFixture::placeRows() const
{
    for (const char *list : {"folderList", "itemGrid"}) {
        if (QQuickItem *found = named(list))
            found->ensurePolished();
    }
}

QAccessibleInterface *WindowFixture::control(QAccessible::Role role, const QString &name) const
{
    placeRows();
    return accessibleChild(QAccessible::queryAccessibleInterface(window), role, name);
}

QQuickItem *WindowFixture::item(QAccessible::Role role, const QString &name) const
{
    const QAccessibleInterface *found = control(role, name);
    return found ? qobject_cast<QQuickItem *>(found->object()) : nullptr;
}

QQuickItem *WindowFixture::button(const QString &name) const
{
    return item(QAccessible::Button, name);
}

QQuickItem *WindowFixture::row(const QString &folderName) const
{
    return item(QAccessible::ListItem, folderName);
}

QString WindowFixture::caption(const QString &folderName) const
{
    const QAccessibleInterface *found = control(QAccessible::ListItem, folderName);
    return found ? found->text(QAccessible::Description) : QString();
}

QStringList WindowFixture::rowNames() const
{
    placeRows();
    QList<std::pair<qreal, QString>> rows;
    std::ignore = descendant(named("folderList"), [&](const QQuickItem *item) {
        if (item->property("caption").isValid() && !item->property("isPooled").toBool())
            rows.append({item->y(), item->property("name").toString()});
        return false;
    });
    std::ranges::sort(rows);
    QStringList names;
    for (const auto &[position, name] : rows)
        names.append(name);
    return names;
}

QString WindowFixture::nameFieldText() const
{
    return named("nameField")->property("text").toString();
}

QVariant WindowFixture::evaluate(const QString &expression) const
{
    return QQmlExpression(qmlContext(window), window, expression).evaluate();
}

bool WindowFixture::hasRing(QQuickItem *item)
{
    return item && descendant(item, [](const QQuickItem *part) {
               return QByteArray(part->metaObject()->className()).startsWith("FocusRing")
                   && part->isVisible();
           });
}

QQuickItem *WindowFixture::part(QQuickItem *item, const char *objectName)
{
    return childNamed(item, objectName);
}

QPoint WindowFixture::centre(const QQuickItem *item)
{
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

void WindowFixture::click(const QQuickItem *item) const
{
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, centre(item));
}

void WindowFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(window, key, modifiers);
}

void WindowFixture::hold(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    const bool isPress = true;
    const bool isRepetition = true;
    for (int repetition = 0; repetition < 3; ++repetition)
        QTest::simulateEvent(window, isPress, key, modifiers, QString(), isRepetition);
}

void WindowFixture::type(const QString &text) const
{
    for (const QChar character : text)
        QTest::keyClick(window, character.toLatin1());
}

bool WindowFixture::choose(const QString &menu, const QString &entry) const
{
    const QQuickItem *opener = button(menu);
    if (!opener)
        return false;
    click(opener);
    const auto found = [&] { return item(QAccessible::MenuItem, entry); };
    if (!QTest::qWaitFor([&] { return found() != nullptr; }))
        return false;
    click(found());
    return QTest::qWaitFor([&] { return found() == nullptr; });
}

void WindowFixture::rename(const QString &text) const
{
    click(named("nameField"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    type(text);
    press(Qt::Key_Return);
}

bool WindowFixture::isOpen(const char *dialog) const
{
    const auto *const popup = window->findChild<QObject *>(QLatin1StringView(dialog));
    return popup != nullptr && popup->property("opened").toBool();
}
