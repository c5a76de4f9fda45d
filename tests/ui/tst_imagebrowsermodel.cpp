#include "tests/fakes/fakedirectories.h"
#include "tests/store/storefixture.h"
#include "tests/ui/modelchanges.h"
#include "ui/imagebrowsermodel.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <atomic>

namespace {

constexpr int patience = 60'000; // for many files under the sanitizers

} // namespace

class ImageBrowserModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void beginsAtTheUsersPictures();
    void beginsAtHomeWithoutPictures();
    void beginsWhereAPictureWasChosenBefore();
    void showsDirectoriesAndPictures();
    void isEmptyUntilTheFirstDirectoryIsRead();
    void goesUpToTheRoot();
    void staysWhenThereIsNothingToShow_data();
    void staysWhenThereIsNothingToShow();
    void pathsLeadToPicturesAndDirectories();
    void showsOnlyPlacesThatAreThere();
    void looksAtNoFileOnTheMainThread();
    void showsWhatWasAskedForLast();
    void mayGoWhileADirectoryIsRead();
    void showsAHundredThousandPictures();
    void showsADirectoryAgainByItsChanges();
    void findsRowsByTheirFirstLetters();

private:
    void make(const QString &name) const
    {
        QFile file(m_pictures + u'/' + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    void begin() const
    {
        m_model->setPanels(m_panels.get());
        QTRY_VERIFY_WITH_TIMEOUT(!m_model->isLoading(), patience);
    }
    // What it says to it: "opened", a picture, or why not.
    QString open(const QString &url) const
    {
        return answerTo([&] { m_model->open(url); });
    }
    QString openPath(const QString &path) const
    {
        return answerTo([&] { m_model->openPath(path); });
    }
    template <typename Question> QString answerTo(Question question) const;
    [[nodiscard]] QStringList names() const { return texts(*m_model, ImageBrowserModel::NameRole); }

    QString m_home;
    QString m_pictures;
    std::unique_ptr<FakePlatform> m_platform;
    std::unique_ptr<SystemPanels> m_panels;
    std::unique_ptr<ImageBrowserModel> m_model;
};

void ImageBrowserModelTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_platform = std::make_unique<FakePlatform>();
    m_home = m_platform->directories.home().path();
    m_pictures = m_home + QStringLiteral("/Pictures");
    QVERIFY(QDir().mkpath(m_pictures));
    m_panels = std::make_unique<SystemPanels>(m_platform->platform);
    m_model = std::make_unique<ImageBrowserModel>();
}

void ImageBrowserModelTest::cleanup()
{
    m_model.reset();
    m_panels.reset();
    m_platform.reset();
}

template <typename Question> QString ImageBrowserModelTest::answerTo(Question question) const
{
    QStringList answers;
    QObject context;
    connect(m_model.get(), &ImageBrowserModel::opened, &context,
            [&] { answers.append(QStringLiteral("opened")); });
    connect(m_model.get(), &ImageBrowserModel::pictureFound, &context,
            [&](const QString &url) { answers.append(url); });
    connect(m_model.get(), &ImageBrowserModel::refused, &context,
            [&](const QString &why) { answers.append(why); });
    question();
    [&] { QTRY_VERIFY_WITH_TIMEOUT(!answers.isEmpty() && !m_model->isLoading(), patience); }();
    return answers.join(u'|');
}

void ImageBrowserModelTest::beginsAtTheUsersPictures()
{
    begin();
    QCOMPARE(m_model->directoryPath(), m_pictures);
}

void ImageBrowserModelTest::beginsAtHomeWithoutPictures()
{
    QVERIFY(QDir().rmdir(m_pictures));
    begin();
    QCOMPARE(m_model->directoryPath(), m_home);
}

void ImageBrowserModelTest::beginsWhereAPictureWasChosenBefore()
{
    QVERIFY(QDir().mkpath(m_home + QStringLiteral("/Other")));
    begin();
    QCOMPARE(openPath(QStringLiteral("~/Other")), QStringLiteral("opened"));
    m_model->rememberDirectory();
    ImageBrowserModel next;
    next.setPanels(m_panels.get());
    QTRY_COMPARE(next.directoryPath(), m_home + QStringLiteral("/Other"));
}

void ImageBrowserModelTest::showsDirectoriesAndPictures()
{
    for (const char *name : {"b.png", "img 10.tiff", "img 9.heic", "notes.txt"})
        make(QString::fromLatin1(name));
    QVERIFY(QDir(m_pictures).mkdir(QStringLiteral("Zebra")));
    begin();
    QCOMPARE(names().join(u'|'), QStringLiteral("b.png|img 9.heic|img 10.tiff|Zebra"));
    QCOMPARE(texts(*m_model, ImageBrowserModel::IsDirectoryRole).join(u'|'),
             QStringLiteral("false|false|false|true"));
    QCOMPARE(m_model->urlAt(1), m_model->directoryURL() + QStringLiteral("img%209.heic"));
    QCOMPARE(m_model->urlAt(99), QString());
    QVERIFY(m_model->isPictureAt(2));
    for (const int row : {3, 4, -1})
        QVERIFY(!m_model->isPictureAt(row));
}

void ImageBrowserModelTest::isEmptyUntilTheFirstDirectoryIsRead()
{
    make(QStringLiteral("a.png"));
    m_model->setPanels(m_panels.get());
    QVERIFY(m_model->isLoading());
    QVERIFY(!m_model->hasParent());
    QCOMPARE(m_model->directoryURL(), QString());
    QCOMPARE(m_model->placeCount(), 0);
    m_model->openParent(); // nowhere yet
    QTRY_COMPARE(names(), QStringList{QStringLiteral("a.png")});
    QVERIFY(!m_model->isLoading());
}

void ImageBrowserModelTest::goesUpToTheRoot()
{
    begin();
    QVERIFY(m_model->hasParent());
    QCOMPARE(answerTo([this] { m_model->openParent(); }), QStringLiteral("opened"));
    QCOMPARE(m_model->directoryPath(), m_home);
    QCOMPARE(open(QStringLiteral("file:///")), QStringLiteral("opened"));
    QVERIFY(!m_model->hasParent());
    m_model->openParent();
    QVERIFY(!m_model->isLoading());
    QCOMPARE(m_model->directoryPath(), QStringLiteral("/"));
}

void ImageBrowserModelTest::staysWhenThereIsNothingToShow_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("why");
    QTest::newRow("never there") << QStringLiteral("/nothing/here")
                                 << QStringLiteral("There is nothing at this path.");
    QTest::newRow("blank") << QStringLiteral("  ")
                           << QStringLiteral("There is nothing at this path.");
    QTest::newRow("unreadable") << QStringLiteral("~/Secret")
                                << QStringLiteral("This folder can’t be opened.");
    QTest::newRow("gone while it is read")
        << QStringLiteral("~/Gone") << QStringLiteral("There is nothing at this path.");
    QTest::newRow("no picture") << QStringLiteral("notes.txt")
                                << QStringLiteral("This is no picture that can be an icon.");
}

void ImageBrowserModelTest::staysWhenThereIsNothingToShow()
{
    QFETCH(QString, path);
    using Operation = FakeFileSystem::Operation;
    for (const char *name : {"/Secret", "/Gone"})
        QVERIFY(QDir().mkpath(m_home + QString::fromLatin1(name)));
    make(QStringLiteral("a.png"));
    make(QStringLiteral("notes.txt"));
    begin();
    m_platform->files.fail(Operation::VisibleEntries, QStringLiteral("/Secret"), EACCES);
    m_platform->files.onCall = [](const FakeFileSystem::Call &call) {
        if (call.operation == Operation::VisibleEntries && call.path.endsWith(u"/Gone"))
            QDir().rmdir(call.path);
    };
    const QSignalSpy changed(m_model.get(), &ImageBrowserModel::directoryChanged);
    QTEST(openPath(path), "why");
    QCOMPARE(m_model->directoryPath(), m_pictures);
    QCOMPARE(names(), QStringList{QStringLiteral("a.png")});
    QCOMPARE(changed.count(), 0);
}

void ImageBrowserModelTest::pathsLeadToPicturesAndDirectories()
{
    make(QStringLiteral("a b.png"));
    begin();
    const QString picture = m_model->urlAt(0);
    for (const QString &path : {QString(m_pictures + QStringLiteral("/a b.png")),
                                QStringLiteral("~/Pictures/a b.png "), QStringLiteral("a b.png")})
        QCOMPARE(openPath(path), picture);
    QCOMPARE(open(picture), picture);
    QCOMPARE(m_model->directoryPath(), m_pictures);
    QCOMPARE(openPath(QStringLiteral("..")), QStringLiteral("opened"));
    QCOMPARE(m_model->directoryURL(), FileURL::directory(m_home).text());
}

void ImageBrowserModelTest::showsOnlyPlacesThatAreThere()
{
    QVERIFY(QDir().mkpath(m_home + QStringLiteral("/Downloads")));
    begin();
    QCOMPARE(m_model->placeCount(), 3);
    QCOMPARE(m_model->placeURL(0), FileURL::directory(m_home).text());
    QCOMPARE(m_model->placeName(1), QStringLiteral("Downloads"));
    QCOMPARE(m_model->placeName(2), QStringLiteral("Pictures"));
    QCOMPARE(m_model->placeSymbol(2), QStringLiteral("photo"));
    for (const int none : {-1, 3}) {
        QCOMPARE(m_model->placeName(none), QString());
        QCOMPARE(m_model->placeSymbol(none), QString());
        QCOMPARE(m_model->placeURL(none), QString());
    }
    QVERIFY(QDir().rmdir(m_home + QStringLiteral("/Downloads")));
    QCOMPARE(open(m_model->directoryURL()), QStringLiteral("opened"));
    QCOMPARE(m_model->placeCount(), 2);
}

void ImageBrowserModelTest::looksAtNoFileOnTheMainThread()
{
    make(QStringLiteral("a.png"));
    std::atomic_bool isOnMainThread = false;
    m_platform->files.onCall = [&](const FakeFileSystem::Call &) {
        if (QThread::currentThread() == QCoreApplication::instance()->thread())
            isOnMainThread = true;
    };
    begin();
    openPath(QStringLiteral("a.png"));
    openPath(QStringLiteral("~"));
    QVERIFY(!m_platform->files.calls.isEmpty());
    QVERIFY(!isOnMainThread);
}

void ImageBrowserModelTest::showsWhatWasAskedForLast()
{
    for (const char *name : {"/Slow/slow.png", "/Quick/quick.png"}) {
        const QFileInfo file(m_home + QString::fromLatin1(name));
        QVERIFY(QDir().mkpath(file.path()));
        QVERIFY(QFile(file.filePath()).open(QIODevice::WriteOnly));
    }
    begin();
    QSemaphore isSlowRead;
    QSemaphore isQuickShown;
    m_platform->files.onCall = [&](const FakeFileSystem::Call &call) {
        if (call.operation != FakeFileSystem::Operation::VisibleEntries
            || !call.path.endsWith(u"/Slow"))
            return;
        isSlowRead.release();
        isQuickShown.acquire();
    };
    const QSignalSpy opened(m_model.get(), &ImageBrowserModel::opened);
    m_model->openPath(QStringLiteral("~/Slow"));
    isSlowRead.acquire();
    m_model->openPath(QStringLiteral("~/Quick"));
    QTRY_COMPARE(names(), QStringList{QStringLiteral("quick.png")});
    isQuickShown.release();
    m_panels.reset(); // waits until the slow one is read too
    QCoreApplication::processEvents();
    QCOMPARE(names(), QStringList{QStringLiteral("quick.png")});
    QCOMPARE(opened.count(), 1);
}

void ImageBrowserModelTest::mayGoWhileADirectoryIsRead()
{
    m_model->setPanels(m_panels.get());
    m_model.reset();
    m_panels.reset();
    QVERIFY(m_platform->files.count(FakeFileSystem::Operation::VisibleEntries) > 0);
}

// Read elsewhere, they come in as one change.
void ImageBrowserModelTest::showsAHundredThousandPictures()
{
    constexpr int count = 100'000;
    QList<DirectoryEntry> pictures;
    for (int number = 0; number < count; ++number)
        pictures.append({.name = QStringLiteral("picture %1.png").arg(number)});
    m_platform->files.listings.insert(m_pictures, pictures);
    ModelChanges changes(*m_model);
    begin();
    QCOMPARE(m_model->rowCount(), count);
    QCOMPARE(changes.take(), QStringList{QStringLiteral("insert 0-99999")});
    QCOMPARE(open(m_model->directoryURL()), QStringLiteral("opened"));
    QCOMPARE(changes.take(), QStringList());
    QCOMPARE(openPath(QStringLiteral("~")), QStringLiteral("opened"));
    QCOMPARE(changes.take(),
             (QStringList{QStringLiteral("remove 0-99999"), QStringLiteral("insert 0-0")}));
}

void ImageBrowserModelTest::showsADirectoryAgainByItsChanges()
{
    make(QStringLiteral("a.png"));
    make(QStringLiteral("c.png"));
    begin();
    ModelChanges changes(*m_model);
    make(QStringLiteral("b.png"));
    QCOMPARE(open(m_model->directoryURL()), QStringLiteral("opened"));
    QCOMPARE(changes.take(), QStringList{QStringLiteral("insert 1-1")});
}

void ImageBrowserModelTest::findsRowsByTheirFirstLetters()
{
    for (const char *name : {"apple.png", "banana.png", "bear.png", "cat.png"})
        make(QString::fromLatin1(name));
    begin();
    QCOMPARE(m_model->rowStartingWith(QStringLiteral("b"), 0), 1);
    QCOMPARE(m_model->rowStartingWith(QStringLiteral("B"), 1), 2);
    QCOMPARE(m_model->rowStartingWith(QStringLiteral("b"), 2), 1);
    QCOMPARE(m_model->rowStartingWith(QStringLiteral("be"), 0), 2);
    QCOMPARE(m_model->rowStartingWith(QStringLiteral("x"), 0), -1);
}

QTEST_GUILESS_MAIN(ImageBrowserModelTest)
#include "tst_imagebrowsermodel.moc"
