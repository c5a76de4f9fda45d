#include "tests/ui/windowfixture.h"

/// What assistive programs are told of the window.
class WindowAccessibleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void controlsHaveNamesAndRoles_data();
    void controlsHaveNamesAndRoles();
    void rowsAreDescribedByTheirCaptions();
    void rowsAnswerAPress();
    void itemsAreDescribedByTheirPlaces();
    void theNameFieldHoldsTheName();
    void everyControlIsNamed();

private:
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

QTEST_MAIN(WindowAccessibleTest)
#include "tst_windowaccessible.moc"
