#include "model/uuidtext.h"
#include "tests/ui/detailfixture.h"
#include "tests/ui/modelchanges.h"

#include <QSignalSpy>
#include <QTest>

class FolderDetailModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }
    void commitsTheTrimmedNameAndAnswersTheResultingOne_data();
    void commitsTheTrimmedNameAndAnswersTheResultingOne();
    void aNameThatDiffersInBlanksOnlyIsNotSaved();
    void aLockedFolderKeepsItsName();
    void showsAndChangesTheItems();
    void anotherFoldersItemsReplaceTheseWithoutAReset();
    void showInDockInstalls();
    void doesNotInstallTwiceAtATime();
    void revealsTheDockApp();
    void anUnknownFolderShowsNothingAndDoesNothing();
    void followsAChangeFromOutside();

private:
    CompanionStore &store() { return *m_fixture->store; }
    [[nodiscard]] QString storedName()
    {
        return store().folder(m_folder.id).value_or(DockFolder()).name;
    }

    const DockFolder m_folder
        = folderNamed(QStringLiteral("Work"),
                      {QStringLiteral("file:///Applications/A.app/"), QStringLiteral("file:///b")});
    const DockFolder m_other = folderNamed(QStringLiteral("Play"), {QStringLiteral("file:///c")});
    std::unique_ptr<DetailFixture> m_fixture;
    FolderDetailModel *m_model = nullptr; ///< the fixture's
};

void FolderDetailModelTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<DetailFixture>();
    m_fixture->showFirst({m_folder, m_other});
    m_model = m_fixture->model.get();
}

void FolderDetailModelTest::commitsTheTrimmedNameAndAnswersTheResultingOne_data()
{
    QTest::addColumn<QString>("draft");
    QTest::addColumn<QString>("resulting");
    QTest::newRow("another name") << QStringLiteral("Home") << QStringLiteral("Home");
    QTest::newRow("blanks and newlines at both ends")
        << QStringLiteral(" \t\n Home \n") << QStringLiteral("Home");
    QTest::newRow("blanks within") << QStringLiteral("My  Home") << QStringLiteral("My  Home");
    QTest::newRow("nothing") << QString() << QStringLiteral("Work");
    QTest::newRow("only blanks") << QStringLiteral(" \n ") << QStringLiteral("Work");
    QTest::newRow("the same") << QStringLiteral("Work") << QStringLiteral("Work");
    QTest::newRow("the same with blanks") << QStringLiteral(" Work ") << QStringLiteral("Work");
    QTest::newRow("another case") << QStringLiteral("work") << QStringLiteral("work");
}

void FolderDetailModelTest::commitsTheTrimmedNameAndAnswersTheResultingOne()
{
    QFETCH(QString, draft);
    QFETCH(QString, resulting);
    QCOMPARE(m_model->commitName(draft), resulting);
    QCOMPARE(m_model->name(), resulting);
    QCOMPARE(storedName(), resulting);
}

void FolderDetailModelTest::aNameThatDiffersInBlanksOnlyIsNotSaved()
{
    const QSignalSpy changed(&store(), &CompanionStore::foldersChanged);
    QCOMPARE(m_model->commitName(QStringLiteral("  Work")), QStringLiteral("Work"));
    QCOMPARE(changed.count(), 0);
}

void FolderDetailModelTest::aLockedFolderKeepsItsName()
{
    const QSignalSpy changed(m_model, &FolderDetailModel::changed);
    CompanionStoreTestAccess::lock(store(), m_folder.id);
    QCOMPARE(changed.count(), 1);
    QVERIFY(m_model->isLocked());
    QCOMPARE(m_model->commitName(QStringLiteral("Home")), QStringLiteral("Work"));
    QCOMPARE(storedName(), QStringLiteral("Work"));
}

void FolderDetailModelTest::showsAndChangesTheItems()
{
    ModelChanges changes(*m_model->items());
    QCOMPARE(m_model->itemCount(), 2);
    m_model->addItems({QStringLiteral("file:///d%20e.txt"), QStringLiteral("file:///b")});
    QCOMPARE(changes.take(), QStringList{QStringLiteral("insert 2-2")}); // b is there
    QCOMPARE(texts(*m_model->items(), ItemListModel::NameRole),
             (QStringList{QStringLiteral("A"), QStringLiteral("b"), QStringLiteral("d e")}));
    m_model->removeItem(uuidText(m_folder.items.at(1).id));
    QCOMPARE(changes.take(), QStringList{QStringLiteral("remove 1-1")});
    m_model->removeItem(QStringLiteral("no id"));
    QCOMPARE(namesOf(store().folder(m_folder.id)->items),
             (QStringList{QStringLiteral("A"), QStringLiteral("d e")}));
}

void FolderDetailModelTest::anotherFoldersItemsReplaceTheseWithoutAReset()
{
    ModelChanges changes(*m_model->items());
    const QSignalSpy changed(m_model, &FolderDetailModel::folderIDChanged);
    m_model->setFolder(m_other.id);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(texts(*m_model->items(), ItemListModel::NameRole), QStringList{QStringLiteral("c")});
    QVERIFY(!changes.take().contains(QStringLiteral("reset")));
}

void FolderDetailModelTest::showInDockInstalls()
{
    m_fixture->installNestlet();
    m_model->showInDock();
    QVERIFY(m_model->isInstalling());
    m_fixture->finishEverything();
    QVERIFY(!m_model->isInstalling());
    QVERIFY(m_model->isInstalled());
    QCOMPARE(m_fixture->workspace.opened.size(), 1);
}

void FolderDetailModelTest::doesNotInstallTwiceAtATime()
{
    m_fixture->installNestlet();
    m_model->showInDock();
    m_model->showInDock();
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->workspace.opened.size(), 1);
    m_model->showInDock(); // later, it is built anew
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->workspace.opened.size(), 2);
}

void FolderDetailModelTest::revealsTheDockApp()
{
    m_model->revealInFinder();
    QCOMPARE(m_fixture->workspace.revealed.size(), 0);
    const FileURL bundle = m_fixture->installProxyBundle(m_folder);
    m_model->revealInFinder();
    QCOMPARE(m_fixture->workspace.revealed, QList<QList<FileURL>>{{bundle}});
}

void FolderDetailModelTest::anUnknownFolderShowsNothingAndDoesNothing()
{
    m_model->setFolder(QUuid::createUuid());
    QCOMPARE(m_model->name(), QString());
    QCOMPARE(m_model->itemCount(), 0);
    m_model->addItems({QStringLiteral("file:///d")});
    m_model->removeFolder();
    m_model->showInDock();
    m_fixture->finishEverything();
    QCOMPARE(m_model->commitName(QStringLiteral("Home")), QString());
    QCOMPARE(store().folders(), (QList{m_folder, m_other}));
}

void FolderDetailModelTest::followsAChangeFromOutside()
{
    DockFolder renamed = m_folder;
    renamed.name = QStringLiteral("Office");
    const QSignalSpy otherFolder(m_model, &FolderDetailModel::folderIDChanged);
    m_fixture->changeFromOutside({renamed, m_other});
    QCOMPARE(m_model->name(), QStringLiteral("Office"));
    QCOMPARE(otherFolder.count(), 0);
}

QTEST_GUILESS_MAIN(FolderDetailModelTest)
#include "tst_folderdetailmodel.moc"
