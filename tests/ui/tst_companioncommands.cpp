#include "tests/store/storefixture.h"
#include "ui/companionviewmodel.h"
#include "ui/picturestore.h"

#include <QSignalSpy>
#include <QTest>

namespace {

constexpr auto feed = R"({"build":%1,"version":"4.%1","url":"https://nestlet.example/get?b=%1"})";

} // namespace

/// Nestlet, the update and the adding of all folders, as the window tells of them.
class CompanionCommandsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void offersTheUpdateThatTheFeedNames();
    void downloadsWhereTheFeedSays();
    void withoutAnUpdateNothingIsDownloaded();
    void aDismissedUpdateStaysAwayAfterARestart();
    void aHigherBuildIsOfferedAfterADismissal();
    void nestletComesAndGoes();
    void opensNestletWhereItIs();
    void tellsHowFarAddingAllIs();
    void addingAllAgainMeanwhileDoesNothing();
    void announcesThatAllAreAddedAndEachThatWas();
    void announcesTheBeginningAndTheEndEachTime();
    void announcesNoFailureAsAnEnd();
    void anUpdateWithoutAVersionIsOffered();
    void tellsWhichFolderWasCreated();

private:
    CompanionStore &store() { return *m_fixture->store; }
    void offer(int build);
    void restart();
    void startModel();
    [[nodiscard]] static QStringList said(const QSignalSpy &announced);

    const DockFolder m_a = folderNamed(QStringLiteral("A"));
    const DockFolder m_b = folderNamed(QStringLiteral("B"));
    std::unique_ptr<StoreFixture> m_fixture;
    PictureStore m_pictures;
    std::unique_ptr<CompanionViewModel> m_model;
};

void CompanionCommandsTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<StoreFixture>();
    m_fixture->writeLibrary({m_a, m_b});
}

void CompanionCommandsTest::cleanup()
{
    m_model.reset();
    m_fixture.reset();
}

QStringList CompanionCommandsTest::said(const QSignalSpy &announced)
{
    QStringList texts;
    for (const QList<QVariant> &arguments : announced)
        texts.append(arguments.first().toString());
    return texts;
}

void CompanionCommandsTest::startModel()
{
    store().start();
    m_fixture->finishEverything();
    m_model = std::make_unique<CompanionViewModel>(store(), m_pictures);
}

void CompanionCommandsTest::offer(int build)
{
    m_fixture->network.body = QString::fromLatin1(feed).arg(build).toUtf8();
}

void CompanionCommandsTest::restart()
{
    m_model.reset();
    auto next = std::make_unique<StoreFixture>();
    next->standardDefaults.values = m_fixture->standardDefaults.values;
    next->network.body = m_fixture->network.body;
    next->writeLibrary({m_a, m_b});
    m_fixture = std::move(next);
    startModel();
}

void CompanionCommandsTest::offersTheUpdateThatTheFeedNames()
{
    offer(42);
    m_fixture->network.isHeld = true;
    startModel();
    QCOMPARE(m_model->availableVersion(), QString());
    const QSignalSpy changed(m_model.get(), &CompanionViewModel::availableUpdateChanged);
    m_fixture->network.release();
    m_fixture->finishEverything();
    QCOMPARE(m_model->availableVersion(), QStringLiteral("4.42"));
    QCOMPARE(changed.count(), 1);
}

void CompanionCommandsTest::downloadsWhereTheFeedSays()
{
    offer(42);
    startModel();
    m_model->downloadUpdate();
    QCOMPARE(m_fixture->workspace.openedURLs,
             QList{QUrl(QStringLiteral("https://nestlet.example/get?b=42"))});
    QCOMPARE(m_model->availableVersion(), QStringLiteral("4.42"));
}

void CompanionCommandsTest::withoutAnUpdateNothingIsDownloaded()
{
    startModel();
    m_model->downloadUpdate();
    m_model->dismissUpdate();
    QCOMPARE(m_fixture->workspace.openedURLs, QList<QUrl>());
    QCOMPARE(m_model->availableVersion(), QString());
}

void CompanionCommandsTest::aDismissedUpdateStaysAwayAfterARestart()
{
    offer(42);
    startModel();
    m_model->dismissUpdate();
    QCOMPARE(m_model->availableVersion(), QString());
    restart();
    QCOMPARE(m_fixture->network.fetched.size(), 1);
    QCOMPARE(m_model->availableVersion(), QString());
}

void CompanionCommandsTest::aHigherBuildIsOfferedAfterADismissal()
{
    offer(42);
    startModel();
    m_model->dismissUpdate();
    offer(43);
    restart();
    QCOMPARE(m_model->availableVersion(), QStringLiteral("4.43"));
}

void CompanionCommandsTest::nestletComesAndGoes()
{
    startModel();
    const QSignalSpy changed(m_model.get(), &CompanionViewModel::presenceChanged);
    QVERIFY(!m_model->isNestletInstalled());
    QCOMPARE(m_model->nestletURL(), QString());
    m_fixture->installNestlet();
    store().refreshPresence();
    QVERIFY(m_model->isNestletInstalled());
    QCOMPARE(m_model->nestletURL(), m_fixture->nestletURL().text());
    m_fixture->files.files.remove(m_fixture->nestletURL());
    store().refreshPresence();
    QVERIFY(!m_model->isNestletInstalled());
    QCOMPARE(m_model->nestletURL(), QString());
    QCOMPARE(changed.count(), 2);
}

void CompanionCommandsTest::opensNestletWhereItIs()
{
    startModel();
    m_model->openNestlet();
    QCOMPARE(m_fixture->workspace.opened.size(), 0);
    m_fixture->installNestlet();
    store().refreshPresence();
    m_model->openNestlet();
    QCOMPARE(m_fixture->workspace.opened.size(), 1);
    QCOMPARE(m_fixture->workspace.opened.first().bundle.path(), m_fixture->nestletURL().path());
    QCOMPARE(m_fixture->workspace.opened.first().activation, Activation::Foreground);
}

void CompanionCommandsTest::tellsHowFarAddingAllIs()
{
    m_fixture->installNestlet();
    startModel();
    QCOMPARE(m_model->addAllTotal(), 0);
    QStringList steps;
    connect(m_model.get(), &CompanionViewModel::addAllProgressChanged, this, [&] {
        steps.append(
            QStringLiteral("%1/%2").arg(m_model->addAllDone()).arg(m_model->addAllTotal()));
    });
    m_model->addAllToDock();
    m_fixture->finishEverything();
    QCOMPARE(steps,
             (QStringList{QStringLiteral("0/2"), QStringLiteral("1/2"), QStringLiteral("0/0")}));
}

void CompanionCommandsTest::addingAllAgainMeanwhileDoesNothing()
{
    m_fixture->installNestlet();
    startModel();
    m_model->addAllToDock();
    QCOMPARE(m_model->addAllTotal(), 2);
    m_model->addAllToDock();
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->workspace.opened.size(), 2);
}

void CompanionCommandsTest::announcesThatAllAreAddedAndEachThatWas()
{
    m_fixture->installNestlet();
    startModel();
    const QSignalSpy announced(m_model.get(), &CompanionViewModel::announced);
    m_model->addAllToDock();
    m_fixture->finishEverything();
    QStringList texts = said(announced);
    QCOMPARE(texts.takeFirst(), QStringLiteral("Adding all folders to the Dock."));
    texts.sort();
    QCOMPARE(
        texts,
        (QStringList{QStringLiteral("A is in the Dock."), QStringLiteral("B is in the Dock.")}));
}

void CompanionCommandsTest::announcesTheBeginningAndTheEndEachTime()
{
    m_fixture->installNestlet();
    startModel();
    const QSignalSpy announced(m_model.get(), &CompanionViewModel::announced);
    for (int time = 0; time < 3; ++time) {
        store().installProxy(m_a.id);
        m_fixture->finishEverything();
    }
    const QString updating = QStringLiteral("Updating A in the Dock.");
    const QString end = QStringLiteral("A is in the Dock.");
    QCOMPARE(
        said(announced),
        (QStringList{QStringLiteral("Adding A to the Dock."), end, updating, end, updating, end}));
}

void CompanionCommandsTest::announcesNoFailureAsAnEnd()
{
    startModel(); // there is no Nestlet
    const QSignalSpy announced(m_model.get(), &CompanionViewModel::announced);
    store().installProxy(m_a.id);
    m_fixture->finishEverything();
    QVERIFY(!m_model->errorMessage().isEmpty());
    QCOMPARE(said(announced), QStringList{QStringLiteral("Adding A to the Dock.")});
}

void CompanionCommandsTest::anUpdateWithoutAVersionIsOffered()
{
    m_fixture->network.body = R"({"build":7,"version":"","url":"https://nestlet.example/7"})";
    startModel();
    QVERIFY(m_model->isUpdateAvailable());
    QCOMPARE(m_model->availableVersion(), QString());
    m_model->dismissUpdate();
    QVERIFY(!m_model->isUpdateAvailable());
}

void CompanionCommandsTest::tellsWhichFolderWasCreated()
{
    startModel();
    const QSignalSpy created(m_model.get(), &CompanionViewModel::folderCreated);
    m_model->createFolder();
    QCOMPARE(created.count(), 1);
    QCOMPARE(m_model->folders()->rowOf(created.first().first().toString()), 2);
}

QTEST_GUILESS_MAIN(CompanionCommandsTest)
#include "tst_companioncommands.moc"
