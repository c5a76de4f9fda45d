#include "tests/fakes/fakedirectories.h"
#include "tests/store/storefixture.h"
#include "tests/ui/modelchanges.h"
#include "ui/imagebrowsermodel.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

class ImageBrowserModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void beginsAtTheUsersPictures();
    void beginsAtHomeWithoutPictures();
    void beginsWhereAPictureWasChosenBefore();
    void listsDirectoriesAndPicturesByName();
    void knowsPicturesByTheirNames_data();
    void knowsPicturesByTheirNames();
    void goesUpToTheRoot();
    void staysWhenADirectoryCannotBeRead();
    void findsPaths();
    void showsOnlyPlacesThatAreThere();
    void showsADirectoryAgainByItsChanges();
    void findsRowsByTheirFirstLetters();

private:
    void make(const QString &name) const
    {
        QFile file(m_pictures + u'/' + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
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

void ImageBrowserModelTest::beginsAtTheUsersPictures()
{
    m_model->setPanels(m_panels.get());
    QCOMPARE(m_model->directoryPath(), m_pictures);
    QCOMPARE(m_model->directoryName(), QStringLiteral("Pictures"));
}

void ImageBrowserModelTest::beginsAtHomeWithoutPictures()
{
    QVERIFY(QDir().rmdir(m_pictures));
    m_model->setPanels(m_panels.get());
    QCOMPARE(m_model->directoryPath(), m_home);
}

void ImageBrowserModelTest::beginsWhereAPictureWasChosenBefore()
{
    QVERIFY(QDir().mkpath(m_home + QStringLiteral("/Other")));
    m_model->setPanels(m_panels.get());
    QVERIFY(m_model->openDirectory(m_model->urlOfPath(QStringLiteral("~/Other"))));
    m_model->rememberDirectory();
    ImageBrowserModel next;
    next.setPanels(m_panels.get());
    QCOMPARE(next.directoryPath(), m_home + QStringLiteral("/Other"));
}

void ImageBrowserModelTest::listsDirectoriesAndPicturesByName()
{
    const QDir pictures(m_pictures);
    for (const char *name : {"b.png", "A.JPG", "img 10.tiff", "img 9.heic", "notes.txt", ".x.png"})
        make(QString::fromLatin1(name));
    QVERIFY(pictures.mkdir(QStringLiteral("Zebra")));
    QVERIFY(pictures.mkdir(QStringLiteral("Tool.app")));
    QVERIFY(pictures.mkdir(QStringLiteral("folder.png")));
    QVERIFY(QFile::link(m_home, m_pictures + QStringLiteral("/link")));
    QVERIFY(QFile::link(QStringLiteral("nowhere"), m_pictures + QStringLiteral("/broken")));
    m_model->setPanels(m_panels.get());
    QCOMPARE(names().join(u'|'),
             QStringLiteral("A.JPG|b.png|folder.png|img 9.heic|img 10.tiff|link|Zebra"));
    QCOMPARE(texts(*m_model, ImageBrowserModel::IsDirectoryRole).join(u'|'),
             QStringLiteral("false|false|true|false|false|true|true"));
    QCOMPARE(m_model->urlAt(3), m_model->directoryURL() + QStringLiteral("img%209.heic"));
    QCOMPARE(m_model->urlAt(99), QString());
}

void ImageBrowserModelTest::knowsPicturesByTheirNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isPicture");
    for (const char *name :
         {"a.png", "a.jpg", "a.JPEG", "a.tif", "a.tiff", "a.bmp", "a.icns", "a.heic"})
        QTest::newRow(name) << QString::fromLatin1(name) << true;
    for (const char *name : {"a.gif", "a.svg", "a.pdf", "png", "a.png.txt", "a"})
        QTest::newRow(name) << QString::fromLatin1(name) << false;
}

void ImageBrowserModelTest::knowsPicturesByTheirNames()
{
    QFETCH(QString, name);
    QTEST(ImageBrowserModel::isPicture(name), "isPicture");
}

void ImageBrowserModelTest::goesUpToTheRoot()
{
    m_model->setPanels(m_panels.get());
    QVERIFY(m_model->hasParent());
    m_model->openParent();
    QCOMPARE(m_model->directoryPath(), m_home);
    QVERIFY(m_model->openDirectory(QStringLiteral("file:///")));
    QVERIFY(!m_model->hasParent());
    m_model->openParent();
    QCOMPARE(m_model->directoryPath(), QStringLiteral("/"));
}

void ImageBrowserModelTest::staysWhenADirectoryCannotBeRead()
{
    make(QStringLiteral("a.png"));
    m_model->setPanels(m_panels.get());
    const QSignalSpy changed(m_model.get(), &ImageBrowserModel::directoryChanged);
    QVERIFY(!m_model->openDirectory(QStringLiteral("file:///nothing/here/")));
    QVERIFY(!m_model->openDirectory(QStringLiteral("https://example.com/")));
    QVERIFY(!m_model->openDirectory(QString()));
    QCOMPARE(m_model->directoryPath(), m_pictures);
    QCOMPARE(names(), QStringList{QStringLiteral("a.png")});
    QCOMPARE(changed.count(), 0);
}

void ImageBrowserModelTest::findsPaths()
{
    make(QStringLiteral("a b.png"));
    m_model->setPanels(m_panels.get());
    const QString picture = m_model->urlAt(0);
    const QString home = FileURL::directory(m_home).text();
    QCOMPARE(m_model->urlOfPath(m_pictures + QStringLiteral("/a b.png")), picture);
    QCOMPARE(m_model->urlOfPath(QStringLiteral("~/Pictures/a b.png ")), picture);
    QCOMPARE(m_model->urlOfPath(QStringLiteral("a b.png")), picture);
    QCOMPARE(m_model->urlOfPath(QStringLiteral("..")), home);
    QCOMPARE(m_model->urlOfPath(QStringLiteral("~")), home);
    QCOMPARE(m_model->urlOfPath(QStringLiteral("/nothing/here")), QString());
    QCOMPARE(m_model->urlOfPath(QStringLiteral("  ")), QString());
    QVERIFY(m_model->isDirectory(home));
    QVERIFY(!m_model->isDirectory(picture));
}

void ImageBrowserModelTest::showsOnlyPlacesThatAreThere()
{
    QVERIFY(QDir().mkpath(m_home + QStringLiteral("/Downloads")));
    m_model->setPanels(m_panels.get());
    QCOMPARE(m_model->placeCount(), 3);
    QCOMPARE(m_model->placeURL(0), FileURL::directory(m_home).text());
    QCOMPARE(m_model->placeName(1), QStringLiteral("Downloads"));
    QCOMPARE(m_model->placeName(2), QStringLiteral("Pictures"));
    QCOMPARE(m_model->placeName(3), QString());
}

void ImageBrowserModelTest::showsADirectoryAgainByItsChanges()
{
    make(QStringLiteral("a.png"));
    make(QStringLiteral("c.png"));
    m_model->setPanels(m_panels.get());
    ModelChanges changes(*m_model);
    make(QStringLiteral("b.png"));
    m_model->refresh();
    QCOMPARE(changes.take(), QStringList{QStringLiteral("insert 1-1")});
}

void ImageBrowserModelTest::findsRowsByTheirFirstLetters()
{
    for (const char *name : {"apple.png", "banana.png", "bear.png", "cat.png"})
        make(QString::fromLatin1(name));
    m_model->setPanels(m_panels.get());
    QCOMPARE(m_model->rowStartingWith(QStringLiteral("b"), 0), 1);
    QCOMPARE(m_model->rowStartingWith(QStringLiteral("B"), 1), 2);
    QCOMPARE(m_model->rowStartingWith(QStringLiteral("b"), 2), 1);
    QCOMPARE(m_model->rowStartingWith(QStringLiteral("be"), 0), 2);
    QCOMPARE(m_model->rowStartingWith(QStringLiteral("x"), 0), -1);
    QCOMPARE(m_model->rowOf(m_model->urlAt(3)), 3);
    QCOMPARE(m_model->rowOf(QStringLiteral("file:///other.png")), -1);
}

QTEST_GUILESS_MAIN(ImageBrowserModelTest)
#include "tst_imagebrowsermodel.moc"
