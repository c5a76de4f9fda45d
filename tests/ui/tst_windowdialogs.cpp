#include "model/uuidtext.h"
#include "tests/ui/windowfixture.h"

#include <QSignalSpy>

/// The confirmations and the error alert.
class WindowDialogsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void cancellingTheRemovalKeepsTheFolderAndItsDockApp();
    void confirmingTheRemovalRemovesTheFolderAndItsDockApp();
    void theRemovalEndsWhenAnotherFolderIsShown();
    void cancellingTheResetChangesNothing_data();
    void cancellingTheResetChangesNothing();
    void confirmingTheResetLeavesTheDefaultFolderSelected();
    void anErrorIsShownAndClearedOnce();
    void aSecondErrorReplacesTheFirst();
    void theSameErrorIsShownAgain();
    void aLongErrorIsScrolledByKeys();
    void anErrorThatComesWhileTheLastOneFadesIsShown();
    void theMenusKnowOfEveryDialog();
    void theColorPanelLeavesTheWindowItsShortcuts();
    void theWindowMayGoBeforeItsDialog_data();
    void theWindowMayGoBeforeItsDialog();

private:
    CompanionStore &store() { return *m_window->store; }
    void fail(const QString &message) { Q_EMIT m_window->proxies.launchFailed(message); }
    [[nodiscard]] bool opens(const char *dialog)
    {
        return QTest::qWaitFor([this, dialog] { return m_window->isOpen(dialog); });
    }
    [[nodiscard]] bool closes(const char *dialog)
    {
        return QTest::qWaitFor([this, dialog] { return !m_window->isOpen(dialog); });
    }
    [[nodiscard]] QAccessibleInterface *text(const QString &words)
    {
        return m_window->control(QAccessible::StaticText, words);
    }

    const DockFolder m_a = folderNamed(QStringLiteral("A"));
    const DockFolder m_b = folderNamed(QStringLiteral("B"));
    FileURL m_bundle;
    std::unique_ptr<WindowFixture> m_window;
};

void WindowDialogsTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
    m_bundle = m_window->installProxyBundle(m_b);
    QVERIFY(m_window->open({m_a, m_b}));
    m_window->click(m_window->row(m_b.name));
}

void WindowDialogsTest::cancellingTheRemovalKeepsTheFolderAndItsDockApp()
{
    QVERIFY(m_window->choose(QStringLiteral("Folder Actions"), QStringLiteral("Remove Folder")));
    QVERIFY(opens("removeDialog"));
    QVERIFY(text(QStringLiteral("The Dock icon will also be removed.")));
    m_window->click(m_window->button(QStringLiteral("Cancel")));
    QVERIFY(closes("removeDialog"));
    QCOMPARE(m_window->rowNames(), (QStringList{m_a.name, m_b.name}));
    QVERIFY(m_window->files.exists(m_bundle));
}

void WindowDialogsTest::confirmingTheRemovalRemovesTheFolderAndItsDockApp()
{
    QVERIFY(m_window->choose(QStringLiteral("Folder Actions"), QStringLiteral("Remove Folder")));
    QVERIFY(opens("removeDialog"));
    m_window->click(m_window->button(QStringLiteral("Remove Folder")));
    QVERIFY(closes("removeDialog"));
    QTRY_COMPARE(m_window->rowNames(), QStringList{m_a.name});
    QVERIFY(!m_window->files.exists(m_bundle));
    QCOMPARE(m_window->nameFieldText(), m_a.name);
}

// Else the question would be about another folder than its answer.
void WindowDialogsTest::theRemovalEndsWhenAnotherFolderIsShown()
{
    QVERIFY(m_window->choose(QStringLiteral("Folder Actions"), QStringLiteral("Remove Folder")));
    QVERIFY(opens("removeDialog"));
    m_window->changeFromOutside({m_a});
    QVERIFY(closes("removeDialog"));
    QCOMPARE(m_window->nameFieldText(), m_a.name);
    QCOMPARE(m_window->rowNames(), QStringList{m_a.name});
}

void WindowDialogsTest::cancellingTheResetChangesNothing_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("by its button") << false;
    QTest::newRow("by Escape") << true;
}

void WindowDialogsTest::cancellingTheResetChangesNothing()
{
    QFETCH(bool, byKey);
    QVERIFY(m_window->choose(QStringLiteral("More"), QStringLiteral("Reset Companion…")));
    QVERIFY(opens("resetDialog"));
    if (byKey)
        m_window->press(Qt::Key_Escape);
    else
        m_window->click(m_window->button(QStringLiteral("Cancel")));
    QVERIFY(closes("resetDialog"));
    QCOMPARE(store().folders(), (QList{m_a, m_b}));
    QCOMPARE(m_window->model->selection(), uuidText(m_b.id));
    QVERIFY(m_window->files.exists(m_bundle));
}

void WindowDialogsTest::confirmingTheResetLeavesTheDefaultFolderSelected()
{
    QVERIFY(m_window->choose(QStringLiteral("More"), QStringLiteral("Reset Companion…")));
    QVERIFY(opens("resetDialog"));
    m_window->click(m_window->button(QStringLiteral("Reset Everything")));
    QVERIFY(closes("resetDialog"));
    QTRY_COMPARE(m_window->rowNames(), QStringList{QStringLiteral("Dock Folder 1")});
    QCOMPARE(m_window->nameFieldText(), QStringLiteral("Dock Folder 1"));
    QVERIFY(!m_window->files.exists(m_bundle));
}

void WindowDialogsTest::anErrorIsShownAndClearedOnce()
{
    m_window->click(m_window->button(QStringLiteral("Update Dock"))); // there is no Nestlet
    m_window->finishEverything();
    QVERIFY(opens("errorAlert"));
    QVERIFY(text(QStringLiteral("Companion Error")));
    QVERIFY(text(store().errorMessage()));
    const QSignalSpy changed(&store(), &CompanionStore::errorMessageChanged);
    m_window->click(m_window->button(QStringLiteral("OK")));
    QVERIFY(closes("errorAlert"));
    QCOMPARE(store().errorMessage(), QString());
    QCOMPARE(changed.count(), 1);
}

void WindowDialogsTest::aSecondErrorReplacesTheFirst()
{
    fail(QStringLiteral("First"));
    QVERIFY(opens("errorAlert"));
    fail(QStringLiteral("Second"));
    QVERIFY(m_window->isOpen("errorAlert"));
    QVERIFY(text(QStringLiteral("Second")));
    QVERIFY(!text(QStringLiteral("First")));
    m_window->press(Qt::Key_Return);
    QVERIFY(closes("errorAlert"));
    QCOMPARE(store().errorMessage(), QString());
}

void WindowDialogsTest::theSameErrorIsShownAgain()
{
    for (int round = 0; round < 2; ++round) {
        fail(QStringLiteral("Again"));
        QVERIFY(opens("errorAlert"));
        m_window->click(m_window->button(QStringLiteral("OK")));
        QVERIFY(closes("errorAlert"));
    }
}

void WindowDialogsTest::aLongErrorIsScrolledByKeys()
{
    fail(QStringLiteral("A long story. ").repeated(400));
    QVERIFY(opens("errorAlert"));
    QTRY_VERIFY(m_window->button(QStringLiteral("OK"))->hasActiveFocus());
    const QQuickItem *const message = m_window->named("alertScroll");
    const auto place = [message] { return message->property("contentY").toReal(); };
    const qreal last = message->property("contentHeight").toReal() - message->height();
    QVERIFY(last > 1000);
    m_window->press(Qt::Key_Down);
    const qreal line = place();
    QVERIFY(line > 0);
    m_window->press(Qt::Key_PageDown);
    QVERIFY(place() > line + message->height() / 2);
    m_window->press(Qt::Key_PageUp);
    m_window->press(Qt::Key_Up);
    QCOMPARE(place(), 0.0);
    m_window->press(Qt::Key_Up);
    QCOMPARE(place(), 0.0);
    m_window->press(Qt::Key_End);
    m_window->press(Qt::Key_Down);
    QCOMPARE(place(), last);
    m_window->press(Qt::Key_Return);
    QVERIFY(closes("errorAlert"));
}

// The alert takes its time to fade away.
void WindowDialogsTest::anErrorThatComesWhileTheLastOneFadesIsShown()
{
    fail(QStringLiteral("First"));
    QVERIFY(opens("errorAlert"));
    m_window->press(Qt::Key_Escape);
    QVERIFY(!m_window->isOpen("errorAlert"));
    fail(QStringLiteral("Second"));
    QVERIFY(opens("errorAlert"));
    QVERIFY(text(QStringLiteral("Second")));
    QVERIFY(!text(QStringLiteral("First")));
    QCOMPARE(store().errorMessage(), QStringLiteral("Second"));
}

void WindowDialogsTest::theMenusKnowOfEveryDialog()
{
    const auto hasDialog = [this] { return m_window->window->property("hasDialog").toBool(); };
    QVERIFY(!hasDialog());
    fail(QStringLiteral("First"));
    QVERIFY(hasDialog());
    store().clearError();
    QVERIFY(!hasDialog());
    const auto *const alert = m_window->window->findChild<QObject *>(QStringLiteral("errorAlert"));
    QTRY_VERIFY(!alert->property("visible").toBool());
    QVERIFY(m_window->choose(QStringLiteral("More"), QStringLiteral("Reset Companion…")));
    QVERIFY(opens("resetDialog"));
    QVERIFY(hasDialog());
    m_window->press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(store().folders().size(), 2);
    m_window->press(Qt::Key_Escape);
    QTRY_VERIFY(!hasDialog());
    QVERIFY(m_window->choose(QStringLiteral("Folder Actions"), QStringLiteral("Remove Folder")));
    QVERIFY(opens("removeDialog"));
    QVERIFY(hasDialog());
    m_window->press(Qt::Key_Escape);
    QTRY_VERIFY(!hasDialog());
    m_window->click(m_window->named("addAppsButton"));
    QTRY_VERIFY(hasDialog());
}

void WindowDialogsTest::theColorPanelLeavesTheWindowItsShortcuts()
{
    const auto hue
        = [this] { return m_window->control(QAccessible::Slider, QStringLiteral("Hue")); };
    m_window->click(m_window->item(QAccessible::RadioButton, QStringLiteral("Custom Color…")));
    QTRY_VERIFY(hue());
    const qsizetype before = store().folders().size();
    m_window->press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(store().folders().size(), before + 1);
    QVERIFY(hue());
    m_window->press(Qt::Key_Escape);
    QTRY_VERIFY(!hue());
}

void WindowDialogsTest::theWindowMayGoBeforeItsDialog_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QByteArray>("dialog");
    QTest::newRow("over the window") << QStringLiteral("More") << QStringLiteral("Reset Companion…")
                                     << QByteArray("resetDialog");
    QTest::newRow("over a folder") << QStringLiteral("Folder Actions")
                                   << QStringLiteral("Remove Folder") << QByteArray("removeDialog");
}

void WindowDialogsTest::theWindowMayGoBeforeItsDialog()
{
    QFETCH(QString, menu);
    QFETCH(QString, entry);
    QFETCH(QByteArray, dialog);
    QVERIFY(m_window->choose(menu, entry));
    QVERIFY(opens(dialog.constData()));
    m_window.reset(); // without a warning
}

QTEST_MAIN(WindowDialogsTest)
#include "tst_windowdialogs.moc"
