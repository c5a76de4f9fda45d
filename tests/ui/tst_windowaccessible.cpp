#include "tests/ui/windowfixture.h"

/// What assistive programs are told of the window.
class WindowAccessibleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup()
    {
        m_window.reset();
        QAccessible::setActive(false);
    }
    void controlsHaveNamesAndRoles_data();
    void controlsHaveNamesAndRoles();
    void rowsAreDescribedByTheirCaptions();
    void rowsAnswerAPress();
    void itemsAreDescribedByTheirPlaces();
    void theNameFieldHoldsTheName();
    void everyControlIsNamed();
    void foldersAreReadInTheirOrder();
    void itemsAreReadInTheirOrder();
    void aReaderThatComesLaterReadsInOrderToo();

private:
    /// The names of what a list shows, as it is read.
    [[nodiscard]] QStringList read(const char *list) const;
    [[nodiscard]] QStringList orderSeen(const char *list) const;

    const DockFolder m_folder
        = folderNamed(QStringLiteral("Work"), {QStringLiteral("file:///Applications/A.app/")});
    std::unique_ptr<WindowFixture> m_window;
};

namespace {

bool isControl(QAccessible::Role role)
{
    static const QList<QAccessible::Role> roles{
        QAccessible::Button,      QAccessible::ListItem,     QAccessible::List,
        QAccessible::MenuItem,    QAccessible::EditableText, QAccessible::CheckBox,
        QAccessible::RadioButton, QAccessible::Slider,       QAccessible::Grouping,
        QAccessible::ProgressBar, QAccessible::Dialog,       QAccessible::StaticText,
        QAccessible::Heading};
    return roles.contains(role);
}

QStringList namelessControls(QAccessibleInterface *root)
{
    QStringList nameless;
    const auto *const item = qobject_cast<QQuickItem *>(root->object());
    if (item && !item->isVisible())
        return nameless;
    if (isControl(root->role()) && root->text(QAccessible::Name).isEmpty())
        nameless.append(QString::fromLatin1(root->object()->metaObject()->className()));
    for (int index = 0; index < root->childCount(); ++index)
        nameless.append(namelessControls(root->child(index)));
    return nameless;
}

} // namespace

void WindowAccessibleTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
    m_window->installNestlet();
    QVERIFY(m_window->open({m_folder}));
    m_window->click(m_window->row(m_folder.name));
}

void WindowAccessibleTest::controlsHaveNamesAndRoles_data()
{
    QTest::addColumn<QAccessible::Role>("role");
    QTest::addColumn<QString>("name");
    const auto add = [](QAccessible::Role role, const char *name) {
        QTest::newRow(name) << role << QString::fromUtf8(name);
    };
    add(QAccessible::List, "Dock Folders");
    add(QAccessible::ListItem, "Nestlet");
    add(QAccessible::ListItem, "Work");
    add(QAccessible::Button, "New Dock Folder");
    add(QAccessible::Button, "More");
    add(QAccessible::Button, "Folder Actions");
    add(QAccessible::EditableText, "Folder name");
    add(QAccessible::StaticText, "Not in Dock");
    add(QAccessible::Button, "Show in Dock");
    add(QAccessible::StaticText, "1 item");
    add(QAccessible::List, "Items");
    add(QAccessible::ListItem, "A");
    add(QAccessible::Button, "Remove A");
}

void WindowAccessibleTest::controlsHaveNamesAndRoles()
{
    QFETCH(QAccessible::Role, role);
    QFETCH(QString, name);
    QVERIFY(m_window->control(role, name));
}

void WindowAccessibleTest::rowsAreDescribedByTheirCaptions()
{
    QCOMPARE(m_window->caption(QStringLiteral("Nestlet")),
             QStringLiteral("Belongs to the App Store app"));
    QCOMPARE(m_window->caption(m_folder.name), QStringLiteral("Not added yet"));
}

void WindowAccessibleTest::rowsAnswerAPress()
{
    QAccessibleInterface *row = m_window->control(QAccessible::ListItem, QStringLiteral("Nestlet"));
    QVERIFY(row->actionInterface());
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(row->state().selected);
}

void WindowAccessibleTest::itemsAreDescribedByTheirPlaces()
{
    QCOMPARE(m_window->caption(QStringLiteral("A")), QStringLiteral("/Applications/A.app"));
}

void WindowAccessibleTest::theNameFieldHoldsTheName()
{
    QAccessibleInterface *field
        = m_window->control(QAccessible::EditableText, QStringLiteral("Folder name"));
    QCOMPARE(field->text(QAccessible::Value), m_folder.name);
}

void WindowAccessibleTest::everyControlIsNamed()
{
    QAccessibleInterface *window = QAccessible::queryAccessibleInterface(m_window->window);
    QCOMPARE(namelessControls(window), QStringList());
    QVERIFY(m_window->choose(QStringLiteral("Folder Actions"), QStringLiteral("Remove Folder")));
    QTRY_VERIFY(m_window->isOpen("removeDialog"));
    QCOMPARE(namelessControls(window), QStringList());
}

namespace {

QList<QAccessibleInterface *> shownChildren(const QAccessibleInterface &list)
{
    QList<QAccessibleInterface *> shown;
    for (int index = 0; index < list.childCount(); ++index) {
        QAccessibleInterface *const child = list.child(index);
        if (child->role() == QAccessible::ListItem && !child->state().invisible)
            shown.append(child);
    }
    return shown;
}

QStringList accessibleNames(const QList<QAccessibleInterface *> &interfaces)
{
    QStringList names;
    for (const QAccessibleInterface *interface : interfaces)
        names.append(interface->text(QAccessible::Name));
    return names;
}

QList<DockFolder> manyFolders()
{
    QList<DockFolder> folders;
    for (int number = 0; number < 60; ++number)
        folders.append(folderNamed(QStringLiteral("Folder %1").arg(number)));
    return folders;
}

} // namespace

QStringList WindowAccessibleTest::read(const char *list) const
{
    return accessibleNames(
        shownChildren(*m_window->control(QAccessible::List, QString::fromLatin1(list))));
}

QStringList WindowAccessibleTest::orderSeen(const char *list) const
{
    QList<QAccessibleInterface *> children
        = shownChildren(*m_window->control(QAccessible::List, QString::fromLatin1(list)));
    std::ranges::sort(children, {}, [](const QAccessibleInterface *child) {
        const QRect place = child->rect();
        return std::pair(place.y(), place.x());
    });
    return accessibleNames(children);
}

void WindowAccessibleTest::foldersAreReadInTheirOrder()
{
    QAccessible::setActive(true);
    QList<DockFolder> folders = manyFolders();
    m_window->changeFromOutside(folders);
    const auto isInOrder = [this] {
        return read("Dock Folders").size() > 5 && read("Dock Folders") == orderSeen("Dock Folders");
    };
    QTRY_VERIFY(isInOrder());
    QQuickItem *const list = m_window->named("folderList");
    for (const qreal position : {1200.0, 700.0, 1900.0, 0.0}) {
        list->setProperty("contentY", position);
        QTRY_VERIFY(isInOrder());
    }
    folders.move(1, 4);
    folders.move(5, 0);
    m_window->changeFromOutside(folders);
    QTRY_COMPARE(read("Dock Folders").sliced(1, 5), namesOf(folders).first(5)); // below Nestlet's
    QTRY_VERIFY(isInOrder());
}

void WindowAccessibleTest::itemsAreReadInTheirOrder()
{
    QAccessible::setActive(true);
    DockFolder folder = m_folder;
    for (const char *name : {"B", "C", "D", "E", "F", "G", "H", "I", "J"})
        folder.items.append({.id = QUuid::createUuid(),
                             .name = QString::fromLatin1(name),
                             .url = FileURL::file(u'/' + QString::fromLatin1(name))});
    m_window->changeFromOutside({folder});
    QTRY_COMPARE(read("Items"), namesOf(folder.items));
    m_window->store->moveItem(m_folder.id, folder.items.at(8).id, 1);
    folder.items.move(8, 1);
    QTRY_COMPARE(read("Items"), namesOf(folder.items));
    QCOMPARE(read("Items"), orderSeen("Items"));
    folder.items.move(0, 5);
    folder.items.remove(2);
    m_window->changeFromOutside({folder});
    QTRY_COMPARE(read("Items"), namesOf(folder.items));
}

void WindowAccessibleTest::aReaderThatComesLaterReadsInOrderToo()
{
    QAccessible::setActive(false);
    QList<DockFolder> folders = manyFolders().first(5);
    m_window->changeFromOutside(folders);
    folders.move(4, 0);
    folders.move(1, 3);
    m_window->changeFromOutside(folders);
    QAccessible::setActive(true);
    QTRY_COMPARE(read("Dock Folders").sliced(1), namesOf(folders)); // below Nestlet's
}

QTEST_MAIN(WindowAccessibleTest)
#include "tst_windowaccessible.moc"
