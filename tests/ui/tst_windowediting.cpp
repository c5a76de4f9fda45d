#include "builder/infoplist.h"
#include "model/uuidtext.h"
#include "tests/ui/windowfixture.h"

#include <QSignalSpy>

/// What the detail of a folder does, by mouse and keyboard.
class WindowEditingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void returnRenamesToTheTrimmedName();
    void aBlankNameGivesTheOldOneBack();
    void escapeGivesTheOldNameBack();
    void leavingTheFieldCommitsTheName();
    void anotherFolderCommitsTheNameOfTheOldOne();
    void typedTextOutlivesAnOutsideChange();
    void typedTextAndCursorOutliveTheEchoOfAnOwnSave();
    void anUntouchedFieldFollowsAnOutsideRename();
    void anUntouchedFieldDoesNotUndoAnOutsideRename();
    void showInDockInstallsAndThenUpdates();
    void theDockButtonRestsWhileItInstalls();
    void showInDockWorksByKeyboard();
    void removesAnItemByMouseAndKeyboard();
    void theItemsKeepTheirPlaceWhenOneIsRenamedOutside();
    void revealsTheDockAppOnceThereIsOne();
    void aLockedFolderOffersNoEditing();

private:
    CompanionStore &store() { return *m_window->store; }
    [[nodiscard]] DockFolder folder() { return store().folder(m_folder.id).value_or(DockFolder()); }
    [[nodiscard]] DockFolder renamed(const QString &name) const
    {
        DockFolder copy = m_folder;
        copy.name = name;
        return copy;
    }

    const DockFolder m_folder
        = folderNamed(QStringLiteral("Work"),
                      {QStringLiteral("file:///Applications/A.app/"), QStringLiteral("file:///b"),
                       QStringLiteral("file:///c")});
    const DockFolder m_other = folderNamed(QStringLiteral("Play"));
    std::unique_ptr<WindowFixture> m_window;
};

void WindowEditingTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
    QVERIFY(m_window->open({m_folder, m_other}));
    m_window->click(m_window->row(m_folder.name));
}

void WindowEditingTest::returnRenamesToTheTrimmedName()
{
    m_window->rename(QStringLiteral("  My Work "));
    QCOMPARE(folder().name, QStringLiteral("My Work"));
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("My Work"));
    QVERIFY(m_window->row(QStringLiteral("My Work")));
    QCOMPARE(m_window->savedLibrary()->folders.first().name, QStringLiteral("My Work"));
}

void WindowEditingTest::aBlankNameGivesTheOldOneBack()
{
    m_window->rename(QStringLiteral("   "));
    QCOMPARE(folder().name, QStringLiteral("Work"));
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("Work"));
    m_window->rename(QString());
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("Work"));
}

void WindowEditingTest::escapeGivesTheOldNameBack()
{
    m_window->click(m_window->named("nameField"));
    m_window->press(Qt::Key_End);
    m_window->type(QStringLiteral("ing"));
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("Working"));
    m_window->press(Qt::Key_Escape);
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("Work"));
    QCOMPARE(folder().name, QStringLiteral("Work"));
}

void WindowEditingTest::leavingTheFieldCommitsTheName()
{
    m_window->click(m_window->named("nameField"));
    m_window->press(Qt::Key_End);
    m_window->type(QStringLiteral("ing"));
    m_window->press(Qt::Key_Tab);
    QCOMPARE(folder().name, QStringLiteral("Working"));
}

void WindowEditingTest::anotherFolderCommitsTheNameOfTheOldOne()
{
    m_window->click(m_window->named("nameField"));
    m_window->press(Qt::Key_End);
    m_window->type(QStringLiteral("ing"));
    m_window->click(m_window->row(m_other.name));
    QCOMPARE(folder().name, QStringLiteral("Working"));
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("Play"));
    QCOMPARE(store().folder(m_other.id)->name, QStringLiteral("Play"));
}

void WindowEditingTest::typedTextOutlivesAnOutsideChange()
{
    m_window->click(m_window->named("nameField"));
    m_window->press(Qt::Key_End);
    m_window->type(QStringLiteral("ing"));
    m_window->changeFromOutside({m_other, renamed(QStringLiteral("Office"))});
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("Working"));
    m_window->type(QStringLiteral("s"));
    m_window->press(Qt::Key_Return);
    QCOMPARE(folder().name, QStringLiteral("Workings"));
}

void WindowEditingTest::typedTextAndCursorOutliveTheEchoOfAnOwnSave()
{
    store().addItems(m_folder.id, {FileURL::file(QStringLiteral("/d"))});
    m_window->click(m_window->named("nameField"));
    m_window->press(Qt::Key_Home);
    m_window->type(QStringLiteral("New"));
    const QSignalSpy changed(&store(), &CompanionStore::foldersChanged);
    m_window->watcher.change();
    m_window->finishEverything();
    QCOMPARE(changed.count(), 0);
    m_window->type(QStringLiteral(" "));
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("New Work"));
}

void WindowEditingTest::anUntouchedFieldFollowsAnOutsideRename()
{
    m_window->changeFromOutside({renamed(QStringLiteral("Office")), m_other});
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("Office"));
}

void WindowEditingTest::anUntouchedFieldDoesNotUndoAnOutsideRename()
{
    m_window->click(m_window->named("nameField"));
    m_window->changeFromOutside({renamed(QStringLiteral("Office")), m_other});
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("Office"));
    m_window->press(Qt::Key_Tab);
    QCOMPARE(folder().name, QStringLiteral("Office"));
}

void WindowEditingTest::showInDockInstallsAndThenUpdates()
{
    m_window->installNestlet();
    QVERIFY(m_window->control(QAccessible::StaticText, QStringLiteral("Not in Dock")));
    m_window->click(m_window->button(QStringLiteral("Show in Dock")));
    m_window->finishEverything();
    QCOMPARE(m_window->caption(m_folder.name), QStringLiteral("Ready in Dock"));
    const QAccessibleInterface *status
        = m_window->control(QAccessible::StaticText, QStringLiteral("In Dock"));
    QVERIFY(status);
    QCOMPARE(status->text(QAccessible::Description),
             QStringLiteral("Running as its own Dock app."));
    m_window->click(m_window->button(QStringLiteral("Update Dock")));
    m_window->finishEverything();
    QCOMPARE(m_window->workspace.opened.size(), 2);
}

void WindowEditingTest::theDockButtonRestsWhileItInstalls()
{
    m_window->installNestlet();
    m_window->applications.isStubborn = true; // so that the installation waits for the clock
    m_window->applications.launch(proxyBundleIdentifier(m_folder.id));
    m_window->click(m_window->button(QStringLiteral("Show in Dock")));
    QVERIFY(!m_window->named("dockButton")->isEnabled());
    m_window->finishEverything();
    QVERIFY(m_window->named("dockButton")->isEnabled());
}

void WindowEditingTest::showInDockWorksByKeyboard()
{
    m_window->installNestlet();
    m_window->click(m_window->named("nameField"));
    m_window->press(Qt::Key_Tab);
    for (int presses = 0; presses < 5 && !m_window->named("dockButton")->hasActiveFocus();
         ++presses)
        m_window->press(Qt::Key_Tab);
    m_window->press(Qt::Key_Return);
    m_window->finishEverything();
    QCOMPARE(m_window->caption(m_folder.name), QStringLiteral("Ready in Dock"));
}

void WindowEditingTest::removesAnItemByMouseAndKeyboard()
{
    m_window->click(m_window->button(QStringLiteral("Remove A")));
    QCOMPARE(namesOf(folder().items), (QStringList{QStringLiteral("b"), QStringLiteral("c")}));
    m_window->click(m_window->row(QStringLiteral("b")));
    m_window->press(Qt::Key_Delete);
    QCOMPARE(namesOf(folder().items), QStringList{QStringLiteral("c")});
    m_window->click(m_window->row(QStringLiteral("c")));
    m_window->press(Qt::Key_Backspace);
    QCOMPARE(folder().items.size(), 0);
}

void WindowEditingTest::theItemsKeepTheirPlaceWhenOneIsRenamedOutside()
{
    QStringList urls;
    for (int number = 0; number < 80; ++number)
        urls.append(QStringLiteral("file:///item%1").arg(number));
    DockFolder full = m_folder;
    full.items = folderNamed(m_folder.name, urls).items;
    m_window->changeFromOutside({full, m_other});
    QTRY_COMPARE(m_window->named("itemGrid")->property("count").toInt(), 80);
    QQuickItem *scroll = m_window->named("detailScroll");
    scroll->setProperty("contentY", 600.0);
    m_window->finishEverything();
    full.items[30].name = QStringLiteral("Renamed");
    m_window->changeFromOutside({full, m_other});
    QVERIFY(m_window->row(QStringLiteral("Renamed")));
    QCOMPARE(scroll->property("contentY").toReal(), 600.0);
}

void WindowEditingTest::revealsTheDockAppOnceThereIsOne()
{
    const FileURL bundle = m_window->installProxyBundle(m_folder);
    store().refreshPresence();
    QVERIFY(m_window->choose(QStringLiteral("Folder Actions"), QStringLiteral("Reveal in Finder")));
    QCOMPARE(m_window->workspace.revealed, QList<QList<FileURL>>{{bundle}});
}

void WindowEditingTest::aLockedFolderOffersNoEditing()
{
    CompanionStoreTestAccess::lock(store(), m_folder.id);
    QVERIFY(m_window->control(QAccessible::StaticText, QStringLiteral("App Store Folder")));
    QVERIFY(!m_window->button(QStringLiteral("Show in Dock")));
    QVERIFY(!m_window->button(QStringLiteral("Remove A")));
    QVERIFY(!m_window->button(QStringLiteral("Add Apps")));
    QVERIFY(!m_window->named("nameField"));
    QVERIFY(
        m_window->control(QAccessible::Grouping, QStringLiteral("Managed by App Store Nestlet")));
    m_window->click(m_window->button(QStringLiteral("Folder Actions")));
    QTRY_VERIFY(m_window->item(QAccessible::MenuItem, QStringLiteral("Remove Folder")));
    QVERIFY(!m_window->item(QAccessible::MenuItem, QStringLiteral("Remove Folder"))->isEnabled());
}

QTEST_MAIN(WindowEditingTest)
#include "tst_windowediting.moc"
