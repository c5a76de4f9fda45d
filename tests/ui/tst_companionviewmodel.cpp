#include "model/uuidtext.h"
#include "tests/store/storefixture.h"
#include "ui/companionviewmodel.h"
#include "ui/picturestore.h"

#include <QSignalSpy>
#include <QTest>

using Kind = CompanionViewModel::DetailKind;

class CompanionViewModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void nothingIsSelectedAtFirst();
    void aChangeOfTheFoldersSelectsTheFirstWhenNothingIs();
    void aNewFolderIsNumberedAndTheSelectionStays();
    void aChangeOfPresenceSelectsNothing();
    void aSelectionNoticesThatNestletHasGone();
    void anotherChangeKeepsTheSelection();
    void theAppStoreFolderStaysSelected();
    void aFolderWithTheNullIDIsOneAsOthers();
    void removingTheSelectedFolderSelectsTheFirst();
    void removingAnotherFolderKeepsTheSelection();
    void losingTheSelectedFolderFromOutsideSelectsTheFirst();
    void resetSelectsTheDefaultFolder();
    void theDetailFollowsTheSelection();
    void theErrorIsTheStoresAndIsClearedOnce();
    void addingAllInstallsEveryFolder();
    void dropsGoToTheFolderThatTheyName();

private:
    CompanionStore &store() { return *m_fixture->store; }
    void select(const QUuid &id) { m_model->setSelection(uuidText(id)); }

    const DockFolder m_a = folderNamed(QStringLiteral("A"));
    const DockFolder m_b = folderNamed(QStringLiteral("B"));
    std::unique_ptr<StoreFixture> m_fixture;
    PictureStore m_pictures;
    std::unique_ptr<CompanionViewModel> m_model;
};

void CompanionViewModelTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<StoreFixture>();
    m_fixture->startWith({m_a, m_b});
    m_model = std::make_unique<CompanionViewModel>(store(), m_pictures);
}

void CompanionViewModelTest::cleanup()
{
    m_model.reset();
    m_fixture.reset();
}

void CompanionViewModelTest::nothingIsSelectedAtFirst()
{
    QCOMPARE(m_model->selection(), QString());
    QCOMPARE(m_model->detailKind(), Kind::Placeholder);
}

void CompanionViewModelTest::aChangeOfTheFoldersSelectsTheFirstWhenNothingIs()
{
    store().renameFolder(m_b.id, QStringLiteral("New"));
    QCOMPARE(m_model->selection(), uuidText(m_a.id));
    QCOMPARE(m_model->detailKind(), Kind::Folder);
}

void CompanionViewModelTest::aNewFolderIsNumberedAndTheSelectionStays()
{
    store().deleteFolder(m_b.id);
    select(m_a.id);
    m_model->createFolder();
    m_model->createFolder();
    QCOMPARE(namesOf(store().folders()),
             (QStringList{QStringLiteral("A"), QStringLiteral("Dock Folder 2"),
                          QStringLiteral("Dock Folder 3")}));
    QCOMPARE(m_model->selection(), uuidText(m_a.id));
}

void CompanionViewModelTest::aChangeOfPresenceSelectsNothing()
{
    store().refreshPresence();
    QCOMPARE(m_model->selection(), QString());
}

void CompanionViewModelTest::aSelectionNoticesThatNestletHasGone()
{
    m_fixture->installNestlet();
    store().refreshPresence();
    QVERIFY(m_model->isNestletInstalled());
    m_fixture->files.remove(m_fixture->nestletURL());
    select(m_b.id);
    QVERIFY(!m_model->isNestletInstalled());
}

void CompanionViewModelTest::anotherChangeKeepsTheSelection()
{
    select(m_b.id);
    const QSignalSpy changed(m_model.get(), &CompanionViewModel::selectionChanged);
    store().renameFolder(m_a.id, QStringLiteral("New"));
    store().moveFolders({1}, 0);
    QCOMPARE(m_model->selection(), uuidText(m_b.id));
    QCOMPARE(changed.count(), 0);
}

void CompanionViewModelTest::theAppStoreFolderStaysSelected()
{
    select(appStoreFolderID());
    QCOMPARE(m_model->detailKind(), Kind::AppStoreFolder);
    QCOMPARE(m_model->detail()->folderID(), QString());
    store().deleteFolder(m_a.id);
    QCOMPARE(m_model->selection(), uuidText(appStoreFolderID()));
}

// Of a damaged library.
void CompanionViewModelTest::aFolderWithTheNullIDIsOneAsOthers()
{
    DockFolder odd = folderNamed(QStringLiteral("Odd"));
    odd.id = QUuid();
    StoreFixture fixture;
    fixture.startWith({odd});
    PictureStore pictures;
    CompanionViewModel model(*fixture.store, pictures);
    QCOMPARE(model.detailKind(), CompanionViewModel::DetailKind::Placeholder);
    QCOMPARE(model.detail()->folderID(), QString());
    QCOMPARE(model.detail()->name(), QString());
    model.setSelection(uuidText(odd.id));
    QCOMPARE(model.selection(), uuidText(odd.id));
    QCOMPARE(model.detailKind(), CompanionViewModel::DetailKind::Folder);
    QCOMPARE(model.detail()->name(), odd.name);
}

void CompanionViewModelTest::removingTheSelectedFolderSelectsTheFirst()
{
    select(m_b.id);
    m_model->detail()->removeFolder();
    QCOMPARE(namesOf(store().folders()), QStringList{QStringLiteral("A")});
    QCOMPARE(m_model->selection(), uuidText(m_a.id));
    QCOMPARE(m_model->detail()->name(), QStringLiteral("A"));
}

void CompanionViewModelTest::removingAnotherFolderKeepsTheSelection()
{
    select(m_b.id);
    store().deleteFolder(m_a.id);
    QCOMPARE(m_model->selection(), uuidText(m_b.id));
}

void CompanionViewModelTest::losingTheSelectedFolderFromOutsideSelectsTheFirst()
{
    select(m_b.id);
    m_fixture->changeFromOutside({m_a});
    QCOMPARE(m_model->selection(), uuidText(m_a.id));
}

void CompanionViewModelTest::resetSelectsTheDefaultFolder()
{
    select(appStoreFolderID());
    m_model->resetEverything();
    QCOMPARE(namesOf(store().folders()), QStringList{QStringLiteral("Dock Folder 1")});
    QCOMPARE(m_model->selection(), uuidText(store().folders().first().id));
    QCOMPARE(m_model->detail()->name(), QStringLiteral("Dock Folder 1"));
}

void CompanionViewModelTest::theDetailFollowsTheSelection()
{
    select(m_b.id);
    QCOMPARE(m_model->detail()->folderID(), uuidText(m_b.id));
    QCOMPARE(m_model->detail()->name(), QStringLiteral("B"));
    m_model->setSelection(QStringLiteral("no id"));
    QCOMPARE(m_model->selection(), QString());
    QCOMPARE(m_model->detailKind(), Kind::Placeholder);
}

void CompanionViewModelTest::theErrorIsTheStoresAndIsClearedOnce()
{
    const QSignalSpy changed(m_model.get(), &CompanionViewModel::errorMessageChanged);
    store().installProxy(m_a.id); // there is no Nestlet
    m_fixture->finishEverything();
    QVERIFY(!m_model->errorMessage().isEmpty());
    QCOMPARE(m_model->errorMessage(), store().errorMessage());
    m_model->clearError();
    m_model->clearError();
    QCOMPARE(m_model->errorMessage(), QString());
    QCOMPARE(changed.count(), 2);
}

void CompanionViewModelTest::addingAllInstallsEveryFolder()
{
    m_fixture->installNestlet();
    m_model->addAllToDock();
    m_fixture->finishEverything();
    QVERIFY(store().isInstalled(m_a.id));
    QVERIFY(store().isInstalled(m_b.id));
}

void CompanionViewModelTest::dropsGoToTheFolderThatTheyName()
{
    m_model->receiveDrop(uuidText(m_b.id), {FileURL::file(QStringLiteral("/tmp/a b"))});
    m_model->receiveDrop(QStringLiteral("no id"), {FileURL::file(QStringLiteral("/tmp/c"))});
    QCOMPARE(namesOf(store().folder(m_b.id)->items), QStringList{QStringLiteral("a b")});
    QCOMPARE(store().folder(m_a.id)->items.size(), 0);
}

QTEST_GUILESS_MAIN(CompanionViewModelTest)
#include "tst_companionviewmodel.moc"
