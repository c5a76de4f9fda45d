#include "model/dockfolder.h"
#include "model/uuidtext.h"
#include "tests/pictures.h"
#include "ui/pictureprovider.h"
#include "ui/picturestore.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

namespace {

DockFolder folderWith(const QByteArray &bytes)
{
    return {.id = QUuid::createUuid(), .customIconData = bytes};
}

} // namespace

class PictureStoreTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aFolderWithoutPictureHasNoSource();
    void theSourceStaysWhileThePictureDoes();
    void anotherPictureHasASourceOfItsOwn();
    void picturesOfFoldersThatAreGoneAreLetGo();
    void theBytesAreShared();
    void unknownSourcesHaveNoBytes_data();
    void unknownSourcesHaveNoBytes();
    void picturesAreDecodedAtTheSizeTheyAreShownAt_data();
    void picturesAreDecodedAtTheSizeTheyAreShownAt();
    void cornersAreRoundWhereAskedFor();
    void damagedBytesAreNoPicture_data();
    void damagedBytesAreNoPicture();

private:
    PictureStore m_pictures;
};

void PictureStoreTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

void PictureStoreTest::aFolderWithoutPictureHasNoSource()
{
    DockFolder folder = folderWith(pngOf(Qt::red));
    QVERIFY(!m_pictures.pictureSource(folder).isEmpty());
    folder.customIconData = QByteArray();
    QCOMPARE(m_pictures.pictureSource(folder), QString());
    folder.customIconData.reset();
    QCOMPARE(m_pictures.pictureSource(folder), QString());
}

void PictureStoreTest::theSourceStaysWhileThePictureDoes()
{
    DockFolder folder = folderWith(pngOf(Qt::red));
    const QString source = m_pictures.pictureSource(folder);
    QVERIFY2(source.startsWith(uuidText(folder.id) + u'/'), qPrintable(source));
    folder.name = QStringLiteral("Renamed");
    QCOMPARE(m_pictures.pictureSource(folder), source);
    folder.customIconData = pngOf(Qt::red); // in other memory, as after a reload
    QCOMPARE(m_pictures.pictureSource(folder), source);
}

void PictureStoreTest::anotherPictureHasASourceOfItsOwn()
{
    DockFolder folder = folderWith(pngOf(Qt::red));
    QSet<QString> sources{m_pictures.pictureSource(folder)};
    for (const Qt::GlobalColor color : {Qt::green, Qt::blue, Qt::red}) {
        folder.customIconData = pngOf(color);
        sources.insert(m_pictures.pictureSource(folder));
    }
    folder.customIconData.reset();
    QCOMPARE(m_pictures.pictureSource(folder), QString());
    folder.customIconData = pngOf(Qt::red); // removed and given again
    sources.insert(m_pictures.pictureSource(folder));
    QCOMPARE(sources.size(), 5);
    QCOMPARE(m_pictures.picture(m_pictures.pictureSource(folder)).bytes(),
             folder.customIconData->bytes());
}

void PictureStoreTest::picturesOfFoldersThatAreGoneAreLetGo()
{
    const DockFolder stays = folderWith(pngOf(Qt::red));
    const DockFolder goes = folderWith(pngOf(Qt::red));
    const QString staying = m_pictures.pictureSource(stays);
    const QString going = m_pictures.pictureSource(goes);
    m_pictures.keepOnly({folderWith({}), stays});
    QCOMPARE(m_pictures.picture(staying).bytes(), stays.customIconData->bytes());
    QCOMPARE(m_pictures.picture(going).bytes(), QByteArray());
    QCOMPARE(m_pictures.pictureSource(stays), staying);
    QVERIFY(m_pictures.pictureSource(goes) != going);
    m_pictures.keepOnly({});
    QCOMPARE(m_pictures.picture(staying).bytes(), QByteArray());
}

void PictureStoreTest::theBytesAreShared()
{
    const DockFolder folder = folderWith(pngOf(Qt::red));
    const QByteArray bytes = m_pictures.picture(m_pictures.pictureSource(folder)).bytes();
    QCOMPARE(static_cast<const void *>(bytes.constData()),
             static_cast<const void *>(folder.customIconData->bytes().constData()));
}

void PictureStoreTest::unknownSourcesHaveNoBytes_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("nothing") << QString();
    QTest::newRow("no id") << QStringLiteral("red/1");
    QTest::newRow("a folder that is not there")
        << uuidText(QUuid::createUuid()) + QStringLiteral("/1");
}

void PictureStoreTest::unknownSourcesHaveNoBytes()
{
    QFETCH(QString, id);
    static_cast<void>(m_pictures.pictureSource(folderWith(pngOf(Qt::red))));
    QCOMPARE(m_pictures.picture(id).bytes(), QByteArray());
}

void PictureStoreTest::picturesAreDecodedAtTheSizeTheyAreShownAt_data()
{
    QTest::addColumn<QSize>("source");
    QTest::addColumn<QSize>("wanted");
    QTest::addColumn<QSize>("expected");
    QTest::newRow("smaller") << QSize(256, 256) << QSize(36, 36) << QSize(36, 36);
    QTest::newRow("never larger than it is") << QSize(20, 20) << QSize(72, 72) << QSize(20, 20);
    QTest::newRow("a wide one covers the area")
        << QSize(400, 200) << QSize(40, 40) << QSize(80, 40);
    QTest::newRow("a tall one covers the area")
        << QSize(200, 400) << QSize(40, 40) << QSize(40, 80);
    QTest::newRow("only a width") << QSize(256, 128) << QSize(64, -1) << QSize(64, 32);
    QTest::newRow("no size") << QSize(256, 128) << QSize() << QSize(256, 128);
    QTest::newRow("an empty size") << QSize(256, 128) << QSize(0, 0) << QSize(256, 128);
}

void PictureStoreTest::picturesAreDecodedAtTheSizeTheyAreShownAt()
{
    QFETCH(QSize, source);
    QFETCH(QSize, wanted);
    const QImage image = decodedPicture(pngOf(Qt::red, source), wanted);
    QTEST(image.size(), "expected");
    QCOMPARE(image.pixelColor(image.rect().center()), QColor(Qt::red));
}

void PictureStoreTest::cornersAreRoundWhereAskedFor()
{
    const QImage wide = decodedPicture(pngOf(Qt::red, {400, 200}), {40, 40});
    const QImage rounded = roundedPicture(wide, 0.22);
    QCOMPARE(rounded.size(), QSize(40, 40));
    QCOMPARE(rounded.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(rounded.pixelColor(39, 39).alpha(), 0);
    for (const QPoint &inside : {QPoint(20, 20), QPoint(0, 20), QPoint(20, 39), QPoint(5, 5)})
        QCOMPARE(rounded.pixelColor(inside), QColor(Qt::red));
    QVERIFY(roundedPicture(QImage(), 0.22).isNull());
}

void PictureStoreTest::damagedBytesAreNoPicture_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("no picture at all");
    QTest::newRow("only a signature") << pngOf(Qt::red).left(8);
    QTest::newRow("only a header") << pngOf(Qt::red).left(40);
}

void PictureStoreTest::damagedBytesAreNoPicture()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(decodedPicture(bytes, {36, 36}).isNull());
}

QTEST_GUILESS_MAIN(PictureStoreTest)
#include "tst_picturestore.moc"
