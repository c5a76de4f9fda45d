#include "model/uuidtext.h"
#include "tests/store/storefixture.h"
#include "tests/ui/modelchanges.h"
#include "ui/folderlistmodel.h"
#include "ui/picturestore.h"

#include <QTest>

class FolderListModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void listsTheLibrarysFoldersInItsOrder();
    void aFolderIsAddedMovedRenamedAndRemovedInPlace();
    void anOutsideChangeChangesOnlyTheRowsThatDiffer();
    void theEchoOfAnOwnSaveChangesNothing();
    void theAppStoreFolderComesAndGoesWithNestlet();
    void theAppStoreFolderIsLocked();
    void captionsSayWhetherAFolderIsInTheDock();
    void aLockedFolderThatIsInstalledBelongsToTheAppStoreApp();
    void anIDThatIsThereTwiceIsTwoRows();
    void rowsAndIDsLeadToEachOther();

private:
    void startWith(const QList<DockFolder> &folders);
    void changeFromOutside(const QList<DockFolder> &folders);
    [[nodiscard]] QStringList names() const { return texts(*m_model, FolderListModel::NameRole); }
    [[nodiscard]] QStringList captions() const
    {
        return texts(*m_model, FolderListModel::StatusRole);
    }
    CompanionStore &store() { return *m_fixture->store; }

    const DockFolder m_a = folderNamed(QStringLiteral("A"));
    const DockFolder m_b = folderNamed(QStringLiteral("B"));
    const DockFolder m_c = folderNamed(QStringLiteral("C"));
    std::unique_ptr<StoreFixture> m_fixture;
    PictureStore m_pictures;
    std::unique_ptr<FolderListModel> m_model;
    std::unique_ptr<ModelChanges> m_changes;
};

void FolderListModelTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<StoreFixture>();
    startWith({m_a, m_b, m_c});
}

void FolderListModelTest::cleanup()
{
    m_changes.reset();
    m_model.reset();
    m_fixture.reset();
}

void FolderListModelTest::startWith(const QList<DockFolder> &folders)
{
    m_fixture->startWith(folders);
    m_model = std::make_unique<FolderListModel>(store(), m_pictures);
    m_changes = std::make_unique<ModelChanges>(*m_model);
}

void FolderListModelTest::changeFromOutside(const QList<DockFolder> &folders)
{
    m_fixture->changeFromOutside(folders);
}

void FolderListModelTest::listsTheLibrarysFoldersInItsOrder()
{
    QCOMPARE(names(), namesOf(QList{m_a, m_b, m_c}));
}

void FolderListModelTest::aFolderIsAddedMovedRenamedAndRemovedInPlace()
{
    store().addFolder();
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("insert 3-3")});
    store().moveFolders({2}, 0);
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("move 2-0")});
    store().renameFolder(m_a.id, QStringLiteral("New"));
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("change 1-1 name")});
    store().deleteFolder(m_b.id);
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("remove 2-2")});
    QCOMPARE(
        names(),
        (QStringList{QStringLiteral("C"), QStringLiteral("New"), QStringLiteral("Dock Folder 4")}));
}

void FolderListModelTest::anOutsideChangeChangesOnlyTheRowsThatDiffer()
{
    DockFolder renamed = m_b;
    renamed.name = QStringLiteral("Other");
    changeFromOutside({m_a, renamed, m_c});
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("change 1-1 name")});
    changeFromOutside({m_a, m_c});
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("remove 1-1")});
}

void FolderListModelTest::theEchoOfAnOwnSaveChangesNothing()
{
    store().addItems(m_a.id, {FileURL::file(QStringLiteral("/x"))});
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("change 0-0 previewURLs")});
    m_fixture->watcher.change();
    m_fixture->finishEverything();
    QCOMPARE(m_changes->take(), QStringList());
}

void FolderListModelTest::theAppStoreFolderComesAndGoesWithNestlet()
{
    m_fixture->installNestlet();
    store().refreshPresence();
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("insert 0-0")});
    QCOMPARE(names().first(), QStringLiteral("Nestlet"));
    m_fixture->files.remove(m_fixture->nestletURL());
    store().refreshPresence();
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("remove 0-0")});
}

void FolderListModelTest::theAppStoreFolderIsLocked()
{
    m_fixture->installNestlet();
    store().refreshPresence();
    const QModelIndex first = m_model->index(0);
    QVERIFY(first.data(FolderListModel::IsLockedRole).toBool());
    QVERIFY(!m_model->index(1).data(FolderListModel::IsLockedRole).toBool());
    QCOMPARE(captions().first(), QStringLiteral("Belongs to the App Store app"));
    QCOMPARE(first.data(FolderListModel::FolderIDRole).toString(), uuidText(appStoreFolderID()));
}

void FolderListModelTest::captionsSayWhetherAFolderIsInTheDock()
{
    m_fixture->installProxyBundle(m_b);
    store().refreshPresence();
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("change 1-1 isInstalled status")});
    QCOMPARE(captions(),
             (QStringList{QStringLiteral("Not added yet"), QStringLiteral("Ready in Dock"),
                          QStringLiteral("Not added yet")}));
    QVERIFY(m_model->index(1).data(FolderListModel::IsInstalledRole).toBool());
}

void FolderListModelTest::aLockedFolderThatIsInstalledBelongsToTheAppStoreApp()
{
    m_fixture->installProxyBundle(m_b);
    store().refreshPresence();
    CompanionStoreTestAccess::lock(store(), m_b.id);
    QCOMPARE(captions().at(1), QStringLiteral("Belongs to the App Store app"));
}

void FolderListModelTest::anIDThatIsThereTwiceIsTwoRows()
{
    DockFolder twin = m_c;
    twin.id = m_a.id;
    changeFromOutside({m_a, m_b, twin});
    QCOMPARE(names(), namesOf(QList{m_a, m_b, twin}));
    changeFromOutside({m_b, m_a});
    QCOMPARE(names(), namesOf(QList{m_b, m_a}));
    QVERIFY(!m_changes->take().contains(QStringLiteral("reset")));
}

void FolderListModelTest::rowsAndIDsLeadToEachOther()
{
    QCOMPARE(m_model->rowOf(uuidText(m_b.id)), 1);
    QCOMPARE(m_model->folderIDAt(1), uuidText(m_b.id));
    QCOMPARE(m_model->rowOf(uuidText(QUuid::createUuid())), -1);
    QCOMPARE(m_model->rowOf(QString()), -1);
    QCOMPARE(m_model->folderIDAt(-1), QString());
    QCOMPARE(m_model->folderIDAt(3), QString());
}

QTEST_GUILESS_MAIN(FolderListModelTest)
#include "tst_folderlistmodel.moc"
