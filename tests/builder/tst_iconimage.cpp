#include "builder/iconimage.h"
#include "tests/pictures.h"

#include <QColorSpace>
#include <QFile>
#include <QImageWriter>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

namespace {

// Red on the left half, blue on the right.
QImage twoHalves(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter(&image).fillRect(width / 2, 0, width - width / 2, height, Qt::blue);
    return image;
}

QImage decoded(const std::optional<QByteArray> &png)
{
    return QImage::fromData(png.value_or(QByteArray()), "PNG");
}

// A JPEG's second marker: "turn a quarter clockwise to see it upright".
QByteArray withQuarterTurn(const QByteArray &jpeg)
{
    static const QByteArray marker = QByteArray::fromHex("ffe1001e"
                                                         "457869660000"
                                                         "4d4d002a00000008"
                                                         "0001"
                                                         "0112000300000001"
                                                         "0006");
    // The directory ends with the value's two spare bytes; the link to the next one may be left
    // out.
    const QByteArray padded = QByteArray(marker) + QByteArray(2, '\0') + QByteArray(4, '\0');
    QByteArray segment = padded;
    const auto length = static_cast<quint16>(segment.size() - 2);
    segment[2] = static_cast<char>(length >> 8);
    segment[3] = static_cast<char>(length & 0xff);
    return jpeg.first(2) + segment + jpeg.sliced(2);
}

} // namespace

class IconImageTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void squeezesAWidePictureIntoASquare();
    void givesASquareOfTheAskedSize_data();
    void givesASquareOfTheAskedSize();
    void keepsTransparency();
    void alwaysHasAnAlphaChannel();
    void smoothsFineDetail();
    void givesEqualBytesForEqualPictures();
    void leavesTextsAndProfilesBehind();
    void showsTheColorsOfAWidePaletteInStandardOnes();
    void ignoresThePicturesPixelRatio();
    void hasNothingToSayOfNoPicture();
    void readsAPictureFile_data();
    void readsAPictureFile();
    void readsAPictureUnderAWrongName();
    void turnsAPhotographUpright();
    void takesTheFirstPictureOfAnAnimation();
    void findsNoPictureInOtherFiles_data();
    void findsNoPictureInOtherFiles();
    void waitsForNoPipe();

private:
    QString write(const QString &name, const QByteArray &bytes);
    QTemporaryDir m_dir;
};

QString IconImageTest::write(const QString &name, const QByteArray &bytes)
{
    const QString path = m_dir.filePath(name);
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? path : QString();
}

void IconImageTest::squeezesAWidePictureIntoASquare()
{
    const QImage icon = decoded(encodeIconImage(twoHalves(1024, 512), 256));
    QCOMPARE(icon.size(), QSize(256, 256));
    // The whole height is filled and the seam lies in the middle: neither bars nor a crop.
    QCOMPARE(icon.pixelColor(10, 0), QColor(Qt::red));
    QCOMPARE(icon.pixelColor(10, 255), QColor(Qt::red));
    QCOMPARE(icon.pixelColor(120, 128), QColor(Qt::red));
    QCOMPARE(icon.pixelColor(136, 128), QColor(Qt::blue));
    QCOMPARE(icon.pixelColor(255, 255), QColor(Qt::blue));
}

void IconImageTest::givesASquareOfTheAskedSize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("side");
    QTest::newRow("one pixel enlarged") << QSize(1, 1) << 256;
    QTest::newRow("a tall one") << QSize(3, 5000) << 256;
    QTest::newRow("a wide one") << QSize(5000, 1) << 256;
    QTest::newRow("of the same size") << QSize(256, 256) << 256;
    QTest::newRow("another side") << QSize(640, 480) << 64;
}

void IconImageTest::givesASquareOfTheAskedSize()
{
    QFETCH(QSize, size);
    QFETCH(int, side);
    const QImage icon = decoded(encodeIconImage(twoHalves(size.width(), size.height()), side));
    QCOMPARE(icon.size(), QSize(side, side));
}

void IconImageTest::keepsTransparency()
{
    QImage image(512, 512, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter(&image).fillRect(0, 0, 512, 256, QColor(0, 200, 0, 128));
    const QImage icon = decoded(encodeIconImage(image, 256));
    QCOMPARE(icon.pixelColor(128, 200).alpha(), 0);
    QCOMPARE(icon.pixelColor(128, 50).alpha(), 128);
    QVERIFY(qAbs(icon.pixelColor(128, 50).green() - 200) <= 1);
}

void IconImageTest::alwaysHasAnAlphaChannel()
{
    QVERIFY(decoded(encodeIconImage(twoHalves(10, 10), 16)).hasAlphaChannel());
    const QImage bitmap = twoHalves(10, 10).convertToFormat(QImage::Format_Mono);
    QVERIFY(decoded(encodeIconImage(bitmap, 16)).hasAlphaChannel());
}

void IconImageTest::smoothsFineDetail()
{
    QImage checkers(512, 512, QImage::Format_RGB32);
    for (int y = 0; y < checkers.height(); ++y) {
        for (int x = 0; x < checkers.width(); ++x)
            checkers.setPixelColor(x, y, (x + y) % 2 != 0 ? Qt::white : Qt::black);
    }
    const int grey = decoded(encodeIconImage(checkers, 256)).pixelColor(100, 100).red();
    QVERIFY(grey > 100 && grey < 156);
}

void IconImageTest::givesEqualBytesForEqualPictures()
{
    const auto first = encodeIconImage(twoHalves(300, 200), 256);
    QVERIFY(first.has_value());
    QCOMPARE(first, encodeIconImage(twoHalves(300, 200), 256));
}

void IconImageTest::leavesTextsAndProfilesBehind()
{
    QImage image = twoHalves(300, 200);
    const auto plain = encodeIconImage(image, 256);
    image.setText(QStringLiteral("Author"), QString(100'000, u'x'));
    image.setDotsPerMeterX(9000);
    QCOMPARE(encodeIconImage(image, 256), plain);
    image.setColorSpace(QColorSpace::SRgb);
    QCOMPARE(encodeIconImage(image, 256), plain);
}

void IconImageTest::showsTheColorsOfAWidePaletteInStandardOnes()
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(QColor(0, 200, 0));
    image.setColorSpace(QColorSpace::DisplayP3);
    const QColor shown = decoded(encodeIconImage(image, 8)).pixelColor(4, 4);
    QVERIFY2(shown.green() > 202, qPrintable(shown.name())); // the wider green is beyond this one
}

void IconImageTest::ignoresThePicturesPixelRatio()
{
    QImage image = twoHalves(512, 512);
    const auto plain = encodeIconImage(image, 256);
    image.setDevicePixelRatio(2);
    QCOMPARE(encodeIconImage(image, 256), plain);
}

void IconImageTest::hasNothingToSayOfNoPicture()
{
    QVERIFY(!encodeIconImage(QImage(), 256));
    QVERIFY(!encodeIconImage(twoHalves(8, 8), 0));
    QVERIFY(!encodeIconImage(twoHalves(8, 8), -1));
}

void IconImageTest::readsAPictureFile_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char *format : {"PNG", "JPG", "BMP"})
        QTest::newRow(format) << QByteArray(format);
}

void IconImageTest::readsAPictureFile()
{
    QFETCH(QByteArray, format);
    const QString name = QStringLiteral("picture.") + QString::fromLatin1(format).toLower();
    const QString path = write(name, encoded(twoHalves(1024, 512), format.constData()));
    const QImage icon = decoded(iconImageFromFile(path));
    QCOMPARE(icon.size(), QSize(256, 256));
    QVERIFY(icon.pixelColor(20, 128).red() > 240);
    QVERIFY(icon.pixelColor(230, 128).blue() > 240);
}

void IconImageTest::readsAPictureUnderAWrongName()
{
    const QByteArray png = encoded(twoHalves(64, 64), "PNG");
    for (const char16_t *name : {u"picture.jpg", u"picture.txt", u"picture"}) {
        const QString path = write(QString::fromUtf16(name), png);
        QCOMPARE(decoded(iconImageFromFile(path)).size(), QSize(256, 256));
    }
}

void IconImageTest::turnsAPhotographUpright()
{
    const QByteArray jpeg = withQuarterTurn(encoded(twoHalves(400, 400), "JPG"));
    const QImage icon = decoded(iconImageFromFile(write(QStringLiteral("photo.jpg"), jpeg)));
    QCOMPARE(icon.size(), QSize(256, 256));
    QVERIFY(icon.pixelColor(128, 20).red() > 240); // what was on the left is at the top
    QVERIFY(icon.pixelColor(128, 230).blue() > 240);
}

void IconImageTest::takesTheFirstPictureOfAnAnimation()
{
    // Two frames of one pixel: red, then blue.
    const QByteArray gif = QByteArray::fromHex("474946383961010001008000"
                                               "00ff00000000ff"
                                               "21f904000a000000"
                                               "2c00000000010001000002024401 00"
                                               "21f904000a000000"
                                               "2c0000000001000100000202 4c01 00"
                                               "3b");
    const QImage icon = decoded(iconImageFromFile(write(QStringLiteral("moving.gif"), gif)));
    QCOMPARE(icon.pixelColor(128, 128), QColor(Qt::red));
}

void IconImageTest::findsNoPictureInOtherFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("text") << QByteArray("not a picture");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("the beginning of a picture") << encoded(twoHalves(64, 64), "PNG").first(20);
    QTest::newRow("a property list") << QByteArray("bplist00\xd0", 9);
}

void IconImageTest::findsNoPictureInOtherFiles()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!iconImageFromFile(write(QStringLiteral("file.png"), bytes)));
    QVERIFY(!iconImageFromFile(m_dir.filePath(QStringLiteral("missing.png"))));
    QVERIFY(!iconImageFromFile(m_dir.path()));
}

void IconImageTest::waitsForNoPipe()
{
    const QString path = m_dir.filePath(QStringLiteral("pipe.png"));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QVERIFY(!iconImageFromFile(path));
}

QTEST_GUILESS_MAIN(IconImageTest)
#include "tst_iconimage.moc"
