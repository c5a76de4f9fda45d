#include "i18n/translations.h"
#include "tests/i18n/textfaults.h"
#include "tests/ui/windowfixture.h"
#include "ui/systempanels.h"

#include <QDir>
#include <QQmlComponent>
#include <QScopeGuard>

/// The window in a language whose texts are half as long again: all of them have their place.
class PseudoLocaleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void faultsAreFound_data();
    void faultsAreFound();
    void theDetailFits_data();
    void theDetailFits();
    void theDetailFitsFromRightToLeft();
    void theFolderOfTheAppStoreFits();
    void nothingSelectedFits();
    void theStripsFit();
    void menusFit_data();
    void menusFit();
    void alertsFit_data();
    void alertsFit();
    void theAppPickerFits();
    void theColorPanelFits();
    void theOpenPanelFits();
    void whatIsSeenForAWhileFits_data();
    void whatIsSeenForAWhileFits();

private:
    static QString translated(const char *context, const char *text)
    {
        return QCoreApplication::translate(context, text);
    }
    static qreal rightEdge(const QQuickItem *item)
    {
        return item->mapToScene({item->width(), 0}).x();
    }
    /// A window with some content, alone.
    [[nodiscard]] std::unique_ptr<QObject> made(const QByteArray &content, int width);
    void press(const char *context, const char *name) const;
    [[nodiscard]] QString faults() const
    {
        return textFaults(*m_window->window, m_names).join(u'\n');
    }

    DockFolder m_empty = folderNamed(QStringLiteral("Empty"));
    DockFolder m_full = folderNamed(QStringLiteral("Full"),
                                    {QStringLiteral("file:///Applications/A.app/"),
                                     QStringLiteral("file:///Applications/B.app/")});
    const QStringList m_names{m_empty.name, m_full.name, QStringLiteral("A"), QStringLiteral("B"),
                              QStringLiteral("Nestlet")};
    std::unique_ptr<Translations> m_pseudo;
    std::unique_ptr<WindowFixture> m_window;
};

void PseudoLocaleTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
    m_pseudo = std::make_unique<Translations>(QStringLiteral("en_XA"));
}

void PseudoLocaleTest::cleanup()
{
    m_window.reset();
    m_pseudo.reset();
}

void PseudoLocaleTest::press(const char *context, const char *name) const
{
    const QQuickItem *const button = m_window->button(translated(context, name));
    QVERIFY2(button, name);
    m_window->click(button);
}

std::unique_ptr<QObject> PseudoLocaleTest::made(const QByteArray &content, int width)
{
    QQmlComponent component(&m_window->engine);
    component.setData("import QtQuick\nimport Nestlet.Companion\nWindow { height: 100; "
                      "visible: true; "
                          + content + " }",
                      {});
    return std::unique_ptr<QObject>(
        component.createWithInitialProperties({{QStringLiteral("width"), width}}));
}

void PseudoLocaleTest::faultsAreFound_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("fault");
    QTest::newRow("none") << QByteArray("CompanionText { text: '[Good ~]' }") << QString();
    QTest::newRow("cut off") << QByteArray("CompanionText { text: '[Long ~~~~~]'; width: 30 }")
                             << QStringLiteral("“[Long ~~~~~]” is cut off");
    QTest::newRow("too wide") << QByteArray(
        "CompanionText { text: '[Long ~~~~~]'; width: 30; elide: Text.ElideNone }")
                              << QStringLiteral("“[Long ~~~~~]” is larger than its place");
    QTest::newRow("too high") << QByteArray("CompanionText { text: '[Long ~]'; height: 5 }")
                              << QStringLiteral("“[Long ~]” is larger than its place");
    QTest::newRow("over its control's edge")
        << QByteArray("PushButton { width: 30; CompanionText { text: '[Long ~~~~~]' } }")
        << QStringLiteral("“[Long ~~~~~]” is wider or higher than what it is in");
    QTest::newRow("over the window's edge")
        << QByteArray("CompanionText { text: '[Long ~]'; x: -20 }")
        << QStringLiteral("“[Long ~]” is out of the window");
    QTest::newRow("over one another") << QByteArray(
        "Item { CompanionText { text: '[One ~]' } CompanionText { text: '[Two ~]' } }")
                                      << QStringLiteral("“[One ~]” is over “[Two ~]”");
    QTest::newRow("no key") << QByteArray("CompanionText { text: 'Plain' }")
                            << QStringLiteral("“Plain” is in no catalogue");
    QTest::newRow("a name") << QByteArray("CompanionText { text: 'Empty'; width: 30 }")
                            << QString();
}

void PseudoLocaleTest::faultsAreFound()
{
    QFETCH(QByteArray, content);
    const std::unique_ptr<QObject> shown = made(content, 200);
    const auto *const window = qobject_cast<QQuickWindow *>(shown.get());
    QVERIFY(window);
    QTEST(textFaults(*window, m_names).join(u'\n'), "fault");
}

void PseudoLocaleTest::theDetailFits_data()
{
    QTest::addColumn<bool>("isEmpty");
    QTest::addColumn<bool>("isInstalled");
    QTest::addColumn<bool>("isLocked");
    QTest::newRow("with items") << false << false << false;
    QTest::newRow("without items") << true << false << false;
    QTest::newRow("in the Dock") << false << true << false;
    QTest::newRow("locked") << false << false << true;
}

void PseudoLocaleTest::theDetailFits()
{
    QFETCH(bool, isEmpty);
    QFETCH(bool, isInstalled);
    QFETCH(bool, isLocked);
    m_window->installNestlet();
    const DockFolder &folder = isEmpty ? m_empty : m_full;
    if (isInstalled)
        m_window->installProxyBundle(folder);
    QVERIFY(m_window->open({m_empty, m_full}));
    if (isLocked)
        CompanionStoreTestAccess::lock(*m_window->store, folder.id);
    m_window->click(m_window->row(folder.name));
    QVERIFY(m_window->control(QAccessible::Pane, folder.name));
    QTRY_VERIFY2(faults().isEmpty(), qUtf8Printable(faults()));
}

void PseudoLocaleTest::theDetailFitsFromRightToLeft()
{
    m_window->installNestlet();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const auto restored = qScopeGuard([] { QGuiApplication::setLayoutDirection(Qt::LeftToRight); });
    QVERIFY(m_window->open({m_empty, m_full}));
    m_window->click(m_window->row(m_full.name));
    QTRY_VERIFY2(faults().isEmpty(), qUtf8Printable(faults()));
    for (const char *name : {"symbolPicker", "colorPicker", "gridPicker"}) {
        const QQuickItem *const picker = m_window->named(name);
        QVERIFY(picker);
        const QQuickItem *const title = picker->parentItem()->childItems().constFirst();
        QVERIFY(title != picker);
        QCOMPARE(rightEdge(title), rightEdge(picker->parentItem()));
        QCOMPARE(rightEdge(picker), rightEdge(picker->parentItem()));
    }
}

void PseudoLocaleTest::theFolderOfTheAppStoreFits()
{
    m_window->installNestlet();
    QVERIFY(m_window->open({m_full}));
    m_window->click(m_window->row(translated("FolderListModel", "Nestlet")));
    QVERIFY(m_window->button(translated("MASFolderDetailView", "Open Nestlet")));
    QTRY_VERIFY2(faults().isEmpty(), qUtf8Printable(faults()));
}

void PseudoLocaleTest::nothingSelectedFits()
{
    m_window->installNestlet();
    QVERIFY(m_window->open({m_full}));
    m_window->model->setSelection({});
    QTRY_VERIFY2(faults().isEmpty(), qUtf8Printable(faults()));
}

void PseudoLocaleTest::theStripsFit()
{
    QVERIFY(m_window->open({m_full}));
    QVERIFY(m_window->control(QAccessible::Grouping,
                              translated("NestletMissingBanner", "Nestlet not found")));
    QTRY_VERIFY2(faults().isEmpty(), qUtf8Printable(faults()));
}

void PseudoLocaleTest::menusFit_data()
{
    QTest::addColumn<QByteArray>("context");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("menu");
    QTest::addColumn<QByteArray>("entry");
    QTest::newRow("of the window") << QByteArray("CompanionSidebar") << QByteArray("More")
                                   << QByteArray("SidebarMenu") << QByteArray("Reset Companion…");
    QTest::newRow("of the folder")
        << QByteArray("CompanionFolderDetail") << QByteArray("Folder Actions")
        << QByteArray("FolderActionsMenu") << QByteArray("Reveal in Finder");
}

void PseudoLocaleTest::menusFit()
{
    QFETCH(QByteArray, context);
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, menu);
    QFETCH(QByteArray, entry);
    m_window->installNestlet();
    QVERIFY(m_window->open({m_full}));
    m_window->click(m_window->row(m_full.name));
    press(context.constData(), button.constData());
    QTRY_VERIFY(
        m_window->item(QAccessible::MenuItem, translated(menu.constData(), entry.constData())));
    QTRY_VERIFY2(faults().isEmpty(), qUtf8Printable(faults()));
}

void PseudoLocaleTest::alertsFit_data()
{
    QTest::addColumn<QByteArray>("dialog");
    QTest::addColumn<QByteArray>("context");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("menu");
    QTest::addColumn<QByteArray>("entry");
    QTest::newRow("removing") << QByteArray("removeDialog") << QByteArray("CompanionFolderDetail")
                              << QByteArray("Folder Actions") << QByteArray("FolderActionsMenu")
                              << QByteArray("Remove Folder");
    QTest::newRow("resetting") << QByteArray("resetDialog") << QByteArray("CompanionSidebar")
                               << QByteArray("More") << QByteArray("SidebarMenu")
                               << QByteArray("Reset Companion…");
}

void PseudoLocaleTest::alertsFit()
{
    QFETCH(QByteArray, dialog);
    QFETCH(QByteArray, context);
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, menu);
    QFETCH(QByteArray, entry);
    QVERIFY(m_window->open({m_full}));
    m_window->click(m_window->row(m_full.name));
    QVERIFY(m_window->choose(translated(context.constData(), button.constData()),
                             translated(menu.constData(), entry.constData())));
    QTRY_VERIFY(m_window->isOpen(dialog.constData()));
    QTRY_VERIFY2(faults().isEmpty(), qUtf8Printable(faults()));
}

void PseudoLocaleTest::theAppPickerFits()
{
    m_window->installNestlet();
    QVERIFY(m_window->open({m_empty}));
    m_window->click(m_window->row(m_empty.name));
    press("FolderItemsSection", "Add Apps");
    QTRY_VERIFY(m_window->isOpen("appPickerSheet"));
    QTRY_VERIFY(!m_window->button(translated("AppPickerSheet", "Loading apps…")));
    QTRY_VERIFY2(faults().isEmpty(), qUtf8Printable(faults()));
    m_window->type(QStringLiteral("no such name"));
    QTRY_VERIFY(m_window->control(
        QAccessible::StaticText,
        translated("AppPickerSheet", "No Results for “%1”").arg(QStringLiteral("no such name"))));
    QTRY_VERIFY2(faults().isEmpty(), qUtf8Printable(faults()));
}

void PseudoLocaleTest::theColorPanelFits()
{
    m_window->installNestlet();
    QVERIFY(m_window->open({m_full}));
    m_window->click(m_window->row(m_full.name));
    const QQuickItem *const custom = m_window->item(
        QAccessible::RadioButton, translated("AppearanceOptions", "Custom Color…"));
    QVERIFY(custom);
    m_window->click(custom);
    QTRY_VERIFY(m_window->control(QAccessible::Slider, translated("HueStrip", "Hue")));
    QTRY_VERIFY2(faults().isEmpty(), qUtf8Printable(faults()));
}

// It begins in the root folder, where there are no pictures of the user yet.
void PseudoLocaleTest::theOpenPanelFits()
{
    SystemPanels panels(m_window->platform);
    QQmlComponent component(&m_window->engine);
    component.setData("import Nestlet.Companion\nOpenPanel { folderID: ''; visible: true }", {});
    const std::unique_ptr<QObject> shown(component.createWithInitialProperties(
        {{QStringLiteral("panels"), QVariant::fromValue(&panels)}}));
    auto *const window = qobject_cast<QQuickWindow *>(shown.get());
    QVERIFY2(window, qUtf8Printable(component.errorString()));
    QVERIFY(QTest::qWaitForWindowExposed(window));
    const auto *const browser = window->property("browser").value<QObject *>();
    QTRY_COMPARE(browser->property("directoryPath").toString(), QStringLiteral("/"));
    const QString found = textFaults(*window, QDir::root().entryList()).join(u'\n');
    QVERIFY2(found.isEmpty(), qUtf8Printable(found));
}

void PseudoLocaleTest::whatIsSeenForAWhileFits_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("width");
    constexpr int windowWidth = 1060;
    constexpr int sidebarWidth = 220;
    QTest::newRow("adding all") << QByteArray("AddAllProgress { width: parent.width; done: 998; "
                                              "total: 999 }")
                                << sidebarWidth;
    QTest::newRow("an update") << QByteArray("UpdateAvailableBanner { width: parent.width; "
                                             "version: '10.10.10' }")
                               << windowWidth;
    QTest::newRow("adding") << QByteArray("DockButton { isInstalled: false; isBusy: true }")
                            << windowWidth;
    QTest::newRow("updating") << QByteArray("DockButton { isInstalled: true; isBusy: true }")
                              << windowWidth;
}

void PseudoLocaleTest::whatIsSeenForAWhileFits()
{
    QFETCH(QByteArray, content);
    QFETCH(int, width);
    const std::unique_ptr<QObject> shown = made(content, width);
    auto *const window = qobject_cast<QQuickWindow *>(shown.get());
    QVERIFY(QTest::qWaitForWindowExposed(window));
    const QString found = textFaults(*window, {}).join(u'\n');
    QVERIFY2(found.isEmpty(), qUtf8Printable(found));
}

QTEST_MAIN(PseudoLocaleTest)
#include "tst_pseudolocale.moc"
