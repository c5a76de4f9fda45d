#include "tests/ui/modelchanges.h"
#include "ui/apppickermodel.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

/// What the picker of installed applications shows, finds and hands out.
class AppPickerModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void loadsUntilTheScanIsDone();
    void scansOffTheMainThread();
    void mayBeGoneBeforeTheScanIsDone();
    void waitsForAScanBeforeItsToolsGo();
    void scansAgainForEachSheet();
    void noApplicationsAreNoFailedSearch();
    void showsNamesAndURLs();
    void aSearchKeepsTheOrder();
    void aSearchIgnoresCaseAndExtension();
    void aSearchWithoutMatchesSaysSo();
    void aSearchWhileLoadingFindsWhatComes();
    void aSearchChangesAsFewRowsAsItCan();
    void clearingTheSearchKeepsTheSelection();
    void whatTheSearchHidesStaysSelected();
    void togglesARow();
    void handsOutTheChosenInTheOrderOfTheList();
    void whatIsThereCannotBeSelected();
    void comparesURLsByTheirTexts_data();
    void comparesURLsByTheirTexts();
    void whatComesIntoTheFolderIsChosenNoMore();
    void ignoresRowsThatAreNot();

private:
    void load();
    [[nodiscard]] QStringList names() const { return texts(*m_model, AppPickerModel::NameRole); }
    [[nodiscard]] bool isSelected(int row) const
    {
        return m_model->index(row).data(AppPickerModel::IsSelectedRole).toBool();
    }
    [[nodiscard]] bool isAlreadyAdded(int row) const
    {
        return m_model->index(row).data(AppPickerModel::AlreadyAddedRole).toBool();
    }

    QList<FileURL> m_installed;
    std::unique_ptr<ApplicationScan> m_scan;
    std::unique_ptr<AppPickerModel> m_model;
    std::unique_ptr<ModelChanges> m_changes;
};

namespace {

QString application(const QString &name)
{
    return QStringLiteral("file:///Applications/%1.app/").arg(name);
}

} // namespace

void AppPickerModelTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_installed.clear();
    for (const char *name : {"Calendar", "Calculator", "Drawing", "Mail", "Withdraw"})
        m_installed.append(*FileURL::fromText(application(QLatin1StringView(name))));
    m_scan = std::make_unique<ApplicationScan>([this] { return m_installed; });
    m_model = std::make_unique<AppPickerModel>();
    m_changes = std::make_unique<ModelChanges>(*m_model);
}

void AppPickerModelTest::cleanup()
{
    m_changes.reset();
    m_model.reset();
    m_scan.reset();
}

void AppPickerModelTest::load()
{
    m_model->setScan(m_scan.get());
    QTRY_VERIFY(!m_model->isLoading());
    static_cast<void>(m_changes->take());
}

void AppPickerModelTest::loadsUntilTheScanIsDone()
{
    QVERIFY(!m_model->isLoading());
    QSignalSpy changes(m_model.get(), &AppPickerModel::contentChanged);
    m_model->setScan(m_scan.get());
    QVERIFY(m_model->isLoading());
    QCOMPARE(changes.size(), 1);
    QCOMPARE(m_model->count(), 0);
    QTRY_VERIFY(!m_model->isLoading());
    QCOMPARE(m_model->count(), 5);
    QCOMPARE(changes.size(), 2);
    QCOMPARE(m_changes->take(), QStringList({QStringLiteral("insert 0-4")}));
}

void AppPickerModelTest::scansOffTheMainThread()
{
    QThread *thread = nullptr;
    ApplicationScan scan([&] {
        thread = QThread::currentThread();
        return m_installed;
    });
    m_model->setScan(&scan);
    QTRY_VERIFY(!m_model->isLoading());
    QVERIFY(thread != nullptr);
    QVERIFY(thread != QThread::currentThread());
}

void AppPickerModelTest::mayBeGoneBeforeTheScanIsDone()
{
    QSemaphore gate;
    {
        ApplicationScan scan([&] {
            gate.acquire();
            return m_installed;
        });
        m_changes.reset();
        m_model->setScan(&scan);
        m_model.reset();
        gate.release();
    }
    QCoreApplication::processEvents();
}

void AppPickerModelTest::waitsForAScanBeforeItsToolsGo()
{
    QSemaphore begun;
    bool isDone = false;
    auto scan = std::make_unique<ApplicationScan>([&] {
        begun.release();
        QThread::msleep(20);
        isDone = true;
        return m_installed;
    });
    m_model->setScan(scan.get());
    begun.acquire();
    scan.reset();
    QVERIFY(isDone);
    QTRY_COMPARE(m_model->count(), 5);
}

void AppPickerModelTest::scansAgainForEachSheet()
{
    load();
    m_installed.removeFirst();
    AppPickerModel second;
    second.setScan(m_scan.get());
    QTRY_COMPARE(second.count(), 4);
    QCOMPARE(m_model->count(), 5);
}

void AppPickerModelTest::noApplicationsAreNoFailedSearch()
{
    m_installed.clear();
    load();
    QCOMPARE(m_model->count(), 0);
    QVERIFY(!m_model->hasNoMatches());
}

void AppPickerModelTest::showsNamesAndURLs()
{
    load();
    QCOMPARE(names().first(), QStringLiteral("Calendar"));
    QCOMPARE(texts(*m_model, AppPickerModel::URLRole).first(),
             application(QStringLiteral("Calendar")));
    QVERIFY(!isSelected(0));
    QVERIFY(!isAlreadyAdded(0));
    QCOMPARE(m_model->roleNames().value(AppPickerModel::AlreadyAddedRole),
             QByteArrayLiteral("alreadyAdded"));
}

void AppPickerModelTest::aSearchKeepsTheOrder()
{
    load();
    m_model->setSearchText(QStringLiteral("a"));
    QCOMPARE(names(),
             QStringList({QStringLiteral("Calendar"), QStringLiteral("Calculator"),
                          QStringLiteral("Drawing"), QStringLiteral("Mail"),
                          QStringLiteral("Withdraw")}));
    m_model->setSearchText(QStringLiteral("al"));
    QCOMPARE(names(), QStringList({QStringLiteral("Calendar"), QStringLiteral("Calculator")}));
}

void AppPickerModelTest::aSearchIgnoresCaseAndExtension()
{
    load();
    m_model->setSearchText(QStringLiteral("DRAW"));
    QCOMPARE(names(), QStringList({QStringLiteral("Drawing"), QStringLiteral("Withdraw")}));
    m_model->setSearchText(QStringLiteral("app"));
    QVERIFY(names().isEmpty());
}

void AppPickerModelTest::aSearchWithoutMatchesSaysSo()
{
    load();
    QVERIFY(!m_model->hasNoMatches());
    m_model->setSearchText(QStringLiteral("xyz"));
    QVERIFY(m_model->hasNoMatches());
    m_model->setSearchText({});
    QVERIFY(!m_model->hasNoMatches());
    QCOMPARE(m_model->count(), 5);
}

void AppPickerModelTest::aSearchWhileLoadingFindsWhatComes()
{
    m_model->setScan(m_scan.get());
    m_model->setSearchText(QStringLiteral("mail"));
    QVERIFY(!m_model->hasNoMatches());
    QTRY_COMPARE(names(), QStringList({QStringLiteral("Mail")}));
}

void AppPickerModelTest::aSearchChangesAsFewRowsAsItCan()
{
    load();
    m_model->setSearchText(QStringLiteral("cal")); // the first two, which are there already
    QCOMPARE(m_changes->take(), QStringList({QStringLiteral("remove 2-4")}));
    m_model->setSearchText(QStringLiteral("calc"));
    QCOMPARE(m_changes->take(),
             QStringList({QStringLiteral("remove 1-1"), QStringLiteral("change 0-0")}));
    m_model->setSearchText(QStringLiteral("calcu"));
    QCOMPARE(m_changes->take(), QStringList());
    m_model->setSearchText({});
    QCOMPARE(m_changes->take(),
             QStringList({QStringLiteral("change 0-0"), QStringLiteral("insert 1-4")}));
}

void AppPickerModelTest::clearingTheSearchKeepsTheSelection()
{
    load();
    m_model->setSearchText(QStringLiteral("mail"));
    m_model->toggle(0);
    m_model->setSearchText({});
    QCOMPARE(m_model->count(), 5);
    QCOMPARE(m_model->selectedCount(), 1);
    QVERIFY(isSelected(3));
}

void AppPickerModelTest::whatTheSearchHidesStaysSelected()
{
    load();
    m_model->toggle(3);
    m_model->setSearchText(QStringLiteral("draw"));
    QCOMPARE(m_model->selectedCount(), 1);
    QVERIFY(!isSelected(0));
    QVERIFY(!isSelected(1));
    QCOMPARE(m_model->chosenURLs(), QStringList({application(QStringLiteral("Mail"))}));
}

void AppPickerModelTest::togglesARow()
{
    load();
    QSignalSpy counts(m_model.get(), &AppPickerModel::selectedCountChanged);
    m_model->toggle(1);
    QVERIFY(isSelected(1));
    QCOMPARE(m_model->selectedCount(), 1);
    m_model->toggle(1);
    QVERIFY(!isSelected(1));
    QCOMPARE(m_model->selectedCount(), 0);
    QCOMPARE(counts.size(), 2);
    QCOMPARE(m_changes->take(),
             QStringList({QStringLiteral("change 1-1 isSelected"),
                          QStringLiteral("change 1-1 isSelected")}));
}

void AppPickerModelTest::handsOutTheChosenInTheOrderOfTheList()
{
    load();
    for (const int row : {4, 0, 2})
        m_model->toggle(row);
    QCOMPARE(m_model->chosenURLs(),
             QStringList({application(QStringLiteral("Calendar")),
                          application(QStringLiteral("Drawing")),
                          application(QStringLiteral("Withdraw"))}));
}

void AppPickerModelTest::whatIsThereCannotBeSelected()
{
    m_model->setExistingURLs({application(QStringLiteral("Drawing"))});
    load();
    QVERIFY(isAlreadyAdded(2));
    QVERIFY(!isAlreadyAdded(1));
    m_model->toggle(2);
    QVERIFY(!isSelected(2));
    QCOMPARE(m_model->selectedCount(), 0);
    QCOMPARE(m_changes->take(), QStringList());
}

void AppPickerModelTest::comparesURLsByTheirTexts_data()
{
    QTest::addColumn<QString>("existing");
    QTest::addColumn<bool>("isTheSame");
    QTest::newRow("the same text") << "file:///Applications/Caf%C3%A9.app/" << true;
    QTest::newRow("without the slash") << "file:///Applications/Caf%C3%A9.app" << false;
    QTest::newRow("other escapes") << "file:///Applications/%43af%C3%A9.app/" << false;
    QTest::newRow("no URL") << "Café" << false;
}

void AppPickerModelTest::comparesURLsByTheirTexts()
{
    QFETCH(QString, existing);
    m_installed = {*FileURL::fromText(QStringLiteral("file:///Applications/Caf%C3%A9.app/"))};
    m_model->setExistingURLs({existing});
    load();
    QTEST(isAlreadyAdded(0), "isTheSame");
}

void AppPickerModelTest::whatComesIntoTheFolderIsChosenNoMore()
{
    load();
    m_model->toggle(0);
    m_model->toggle(3);
    m_model->setExistingURLs({application(QStringLiteral("Mail"))});
    QVERIFY(isAlreadyAdded(3));
    QVERIFY(!isSelected(3));
    QCOMPARE(m_model->selectedCount(), 1);
    QCOMPARE(m_model->chosenURLs(), QStringList({application(QStringLiteral("Calendar"))}));
}

void AppPickerModelTest::ignoresRowsThatAreNot()
{
    load();
    m_model->toggle(-1);
    m_model->toggle(5);
    QCOMPARE(m_model->selectedCount(), 0);
}

QTEST_GUILESS_MAIN(AppPickerModelTest)
#include "tst_apppickermodel.moc"
