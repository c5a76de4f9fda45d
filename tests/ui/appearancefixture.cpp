#include "tests/ui/appearancefixture.h"

#include "ui/windowengine.h"

#include <QGuiApplication>
#include <QQmlComponent>

namespace {

constexpr auto scene = R"(
import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

T.ApplicationWindow {
    id: root

    required property FolderDetailModel folder
    required property SystemPanels panels

    width: 900
    height: 600
    visible: true
    color: Theme.content

    AppearanceSection {
        objectName: "section"
        x: 32
        y: 32
        width: 836
        folder: root.folder
        panels: root.panels
        onPickImageRequested: imagePanel.open(root.folder.folderID)
    }

    IconImagePanel {
        id: imagePanel
        panels: root.panels
        onChosen: (url, folderID) => root.folder.loadCustomImage(url, folderID)
    }
}
)";

void collectChecked(QAccessibleInterface *root, QStringList &names)
{
    if (root->role() == QAccessible::RadioButton && root->state().checked)
        names.append(root->text(QAccessible::Name));
    for (int index = 0; index < root->childCount(); ++index)
        collectChecked(root->child(index), names);
}

} // namespace

AppearanceFixture::AppearanceFixture()
{
    qputenv("QT_QUICK_BACKEND", "software");
    addPictureProviders(engine, workspace, pictures);
    addWindowTypes(engine);
}

AppearanceFixture::~AppearanceFixture()
{
    window.reset(); // before what it shows
}

bool AppearanceFixture::open(const QList<DockFolder> &folders)
{
    showFirst(folders);
    panels = std::make_unique<SystemPanels>(platform);
    QQmlComponent component(&engine);
    component.setData(scene, QUrl(QStringLiteral("qrc:/scene.qml")));
    window.reset(qobject_cast<QQuickWindow *>(component.createWithInitialProperties(
        {{QStringLiteral("folder"), QVariant::fromValue(model.get())},
         {QStringLiteral("panels"), QVariant::fromValue(panels.get())}})));
    if (!window) {
        qInfo() << component.errorString();
        return false;
    }
    section = named("section");
    window->requestActivate();
    return QTest::qWaitForWindowActive(window.get());
}

DockFolder AppearanceFixture::stored(const DockFolder &folder) const
{
    return store->folder(folder.id).value_or(DockFolder());
}

QAccessibleInterface *AppearanceFixture::control(QAccessible::Role role, const QString &name) const
{
    return accessibleChild(QAccessible::queryAccessibleInterface(window.get()), role, name);
}

QAccessibleInterface *AppearanceFixture::cell(const QString &name) const
{
    return control(QAccessible::RadioButton, name);
}

QStringList AppearanceFixture::checkedCells(const QString &picker) const
{
    QStringList names;
    if (QAccessibleInterface *group = control(QAccessible::Grouping, picker))
        collectChecked(group, names);
    return names;
}

QString AppearanceFixture::focusedName() const
{
    QObject *const focused = window->activeFocusItem();
    QAccessibleInterface *const interface = focused ? QAccessible::queryAccessibleInterface(focused)
                                                    : nullptr;
    return interface ? interface->text(QAccessible::Name) : QString();
}

QQuickItem *AppearanceFixture::named(const char *objectName) const
{
    return childNamed(window->contentItem(), objectName);
}

QQuickWindow *AppearanceFixture::openPanel() const
{
    for (QWindow *other : QGuiApplication::topLevelWindows()) {
        if (other != window.get() && other->isVisible())
            return qobject_cast<QQuickWindow *>(other);
    }
    return nullptr;
}

void AppearanceFixture::click(const QAccessibleInterface *interface) const
{
    const auto *const item = qobject_cast<QQuickItem *>(interface->object());
    QTest::mouseClick(item->window(), Qt::LeftButton, Qt::NoModifier,
                      item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint());
}

void AppearanceFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(window.get(), key, modifiers);
}
