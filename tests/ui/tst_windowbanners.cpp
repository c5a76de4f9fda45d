#include "builder/infoplist.h"
#include "model/uuidtext.h"
#include "tests/ui/windowfixture.h"

/// The strips over the window and the page of the folder that Nestlet manages itself.
class WindowBannersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void theMissingAppIsToldOf();
    void theStripGoesWithTheReasonForIt();
    void anUpdateIsOffered();
    void downloadOpensThePage();
    void dismissingHidesTheStripForThatBuild();
    void bothStripsAreOverTheColumns();
    void theAppStoreFolderIsReadOnly();
    void theAppStoreFolderOpensNestlet();
    void aLockedFolderTellsWhy();
    void progressOfAddingAllIsShown();
    void theInstallationIsAnnounced();
    void anAnnouncementIsNewsEachTime();
    void anAnnouncementGoesAfterAWhile();

private:
    [[nodiscard]] bool openWith(bool hasUpdate, bool hasNestlet);
    [[nodiscard]] QQuickItem *strip(const QString &title) const
    {
        return m_window->item(QAccessible::Grouping, title);
    }

    [[nodiscard]] bool announced(const QString &text) const
    {
        return m_window->control(QAccessible::AlertMessage, text) != nullptr;
    }
    // For the clock, so that they can be seen.
    void makeInstallationsWait()
    {
        m_window->applications.isStubborn = true;
        m_window->applications.launch(proxyBundleIdentifier(m_a.id));
    }

    const QString m_missing = QStringLiteral("Nestlet not found");
    const QString m_update = QStringLiteral("Nestlet Companion 4.2 available");
    const DockFolder m_a = folderNamed(QStringLiteral("A"), {QStringLiteral("file:///x")});
    std::unique_ptr<WindowFixture> m_window;
};

namespace {

constexpr auto feed = R"({"build":42,"version":"4.2","url":"https://nestlet.example/42"})";

} // namespace

void WindowBannersTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
}

bool WindowBannersTest::openWith(bool hasUpdate, bool hasNestlet)
{
    if (hasUpdate)
        m_window->network.body = QByteArray(feed);
    if (hasNestlet)
        m_window->installNestlet();
    return m_window->open({m_a});
}

void WindowBannersTest::theMissingAppIsToldOf()
{
    QVERIFY(openWith(false, false));
    const QAccessibleInterface *shown = m_window->control(QAccessible::Grouping, m_missing);
    QVERIFY(shown);
    QCOMPARE(shown->text(QAccessible::Description),
             QStringLiteral(
                 "Install Nestlet first. Companion needs it to generate and launch Dock folders."));
    QCOMPARE(strip(m_missing)->width(), qreal(m_window->window->width()));
    QVERIFY(!strip(m_update));
}

void WindowBannersTest::theStripGoesWithTheReasonForIt()
{
    QVERIFY(openWith(false, true));
    QVERIFY(!strip(m_missing));
    const qreal top = m_window->named("folderList")->mapToScene({}).y();
    m_window->files.files.remove(m_window->nestletURL());
    m_window->store->applicationBecameActive();
    QTRY_VERIFY(strip(m_missing));
    QTRY_COMPARE(m_window->named("folderList")->mapToScene({}).y(),
                 top + strip(m_missing)->height());
    m_window->installNestlet();
    m_window->store->applicationBecameActive();
    QTRY_VERIFY(!strip(m_missing));
    QTRY_COMPARE(m_window->named("folderList")->mapToScene({}).y(), top);
}

void WindowBannersTest::anUpdateIsOffered()
{
    QVERIFY(openWith(true, true));
    const QAccessibleInterface *shown = m_window->control(QAccessible::Grouping, m_update);
    QVERIFY(shown);
    QCOMPARE(shown->text(QAccessible::Description),
             QStringLiteral("Download the latest version to get new features and bug fixes."));
}

void WindowBannersTest::downloadOpensThePage()
{
    QVERIFY(openWith(true, true));
    m_window->click(m_window->button(QStringLiteral("Download")));
    QCOMPARE(m_window->workspace.openedURLs,
             QList{QUrl(QStringLiteral("https://nestlet.example/42"))});
    QVERIFY(strip(m_update));
}

void WindowBannersTest::dismissingHidesTheStripForThatBuild()
{
    QVERIFY(openWith(true, true));
    m_window->click(m_window->button(QStringLiteral("Dismiss")));
    QVERIFY(!strip(m_update));
    QCOMPARE(m_window->standardDefaults.values.value(QStringLiteral("NLC_dismissedUpdateBuild")),
             QVariant(qint64(42)));
    m_window->clock.advance(std::chrono::hours(2));
    m_window->store->applicationBecameActive();
    m_window->finishEverything();
    QCOMPARE(m_window->network.fetched.size(), 2);
    QVERIFY(!strip(m_update));
}

void WindowBannersTest::bothStripsAreOverTheColumns()
{
    QVERIFY(openWith(true, false));
    const QQuickItem *const missing = strip(m_missing);
    const QQuickItem *const update = strip(m_update);
    QVERIFY(missing && update);
    QCOMPARE(missing->mapToScene({}).y() + update->mapToScene({}).y(),
             std::min(missing->height(), update->height()));
    QVERIFY(m_window->named("folderList")->mapToScene({}).y()
            >= missing->height() + update->height());
}

void WindowBannersTest::theAppStoreFolderIsReadOnly()
{
    QVERIFY(openWith(false, true));
    m_window->click(m_window->row(QStringLiteral("Nestlet")));
    QVERIFY(m_window->control(QAccessible::Heading, QStringLiteral("Nestlet")));
    QVERIFY(
        m_window->control(QAccessible::Grouping, QStringLiteral("Managed by App Store Nestlet")));
    for (const char *name : {"nameField", "dockButton", "itemGrid", "addAppsButton",
                             "folderActionsButton", "detailDropTarget"})
        QVERIFY2(!m_window->named(name), name);
}

void WindowBannersTest::theAppStoreFolderOpensNestlet()
{
    QVERIFY(openWith(false, true));
    m_window->click(m_window->row(QStringLiteral("Nestlet")));
    m_window->click(m_window->button(QStringLiteral("Open Nestlet")));
    QCOMPARE(m_window->workspace.opened.size(), 1);
    QCOMPARE(m_window->workspace.opened.first().bundle.path(), m_window->nestletURL().path());
}

void WindowBannersTest::aLockedFolderTellsWhy()
{
    QVERIFY(openWith(false, true));
    m_window->click(m_window->row(m_a.name));
    const QString title = QStringLiteral("Managed by App Store Nestlet");
    QVERIFY(!strip(title));
    CompanionStoreTestAccess::lock(*m_window->store, m_a.id);
    QVERIFY(strip(title));
    QCOMPARE(
        m_window->control(QAccessible::Grouping, title)->text(QAccessible::Description),
        QStringLiteral("This folder is owned by the App Store version and cannot be edited here."));
    QVERIFY(
        m_window->control(QAccessible::StaticText, QStringLiteral("App Store Folder"))); // its tag
}

void WindowBannersTest::progressOfAddingAllIsShown()
{
    QVERIFY(openWith(false, true));
    const QString text = QStringLiteral("Adding to Dock: %1 of 1").arg(QLocale().toString(0));
    QVERIFY(!m_window->control(QAccessible::ProgressBar, text));
    m_window->model->addAllToDock();
    const QAccessibleInterface *shown = m_window->control(QAccessible::ProgressBar, text);
    QVERIFY(shown);
    m_window->click(m_window->button(QStringLiteral("More")));
    const QString entry = QStringLiteral("Add All to Dock");
    QTRY_VERIFY(m_window->item(QAccessible::MenuItem, entry)
                || m_window->store->isInstalled(m_a.id));
    m_window->finishEverything();
    QVERIFY(!m_window->control(QAccessible::ProgressBar, text));
    QVERIFY(m_window->item(QAccessible::MenuItem, entry)->isEnabled());
}

void WindowBannersTest::theInstallationIsAnnounced()
{
    QVERIFY(openWith(false, true));
    makeInstallationsWait();
    m_window->store->installProxy(m_a.id);
    QVERIFY(announced(QStringLiteral("Adding A to the Dock.")));
    m_window->finishEverything();
    QVERIFY(announced(QStringLiteral("A is in the Dock.")));
}

// What is shown already would be no news to assistive programs.
void WindowBannersTest::anAnnouncementIsNewsEachTime()
{
    QVERIFY(openWith(false, true));
    const QQuickItem *const all
        = WindowFixture::part(m_window->window->contentItem(), "announcement");
    for (int time = 1; time <= 2; ++time) {
        Q_EMIT m_window->model->announced(QStringLiteral("Twice."));
        QCOMPARE(all->childItems().size(), time);
        QVERIFY(all->childItems().last()->isVisible());
        QCOMPARE(QAccessible::queryAccessibleInterface(all->childItems().last())
                     ->text(QAccessible::Name),
                 QStringLiteral("Twice."));
    }
}

void WindowBannersTest::anAnnouncementGoesAfterAWhile()
{
    QVERIFY(openWith(false, true));
    Q_EMIT m_window->model->announced(QStringLiteral("Once."));
    QVERIFY(announced(QStringLiteral("Once.")));
    QTRY_VERIFY_WITH_TIMEOUT(!announced(QStringLiteral("Once.")), 20000);
}

QTEST_MAIN(WindowBannersTest)
#include "tst_windowbanners.moc"
