#include "platform/qt/imagebytes.h"
#include "tests/pictures.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

QByteArray redIn(const char *format)
{
    return encoded(filledImage(Qt::red, {12, 8}), format);
}

// What of the toolkit's plugins this process has loaded.
QByteArray loadedImagePlugins()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    QByteArray plugins;
    if (maps.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : maps.readAll().split('\n')) {
            if (line.contains("/imageformats/"))
                plugins += line.mid(line.lastIndexOf('/') + 1) + ' ';
        }
    }
    return plugins;
}

} // namespace

class ImageBytesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void loadsNoPluginForTheMostUsualKind(); // first: once loaded, they stay
    void readsPicturesOfManyKinds_data();
    void readsPicturesOfManyKinds();
    void readsNothingFromOtherBytes_data();
    void readsNothingFromOtherBytes();
};

void ImageBytesTest::loadsNoPluginForTheMostUsualKind()
{
    QVERIFY(
        !imageFromBytes(
             QByteArray::fromBase64(
                 "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mP8z8BQDwAEhQGAhKmMIQAA"
                 "AABJRU5ErkJggg=="))
             .isNull());
    QCOMPARE(loadedImagePlugins(), QByteArray());
}

void ImageBytesTest::readsPicturesOfManyKinds_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const char *format : {"png", "jpeg", "bmp", "tiff"})
        QTest::newRow(format) << redIn(format);
}

void ImageBytesTest::readsPicturesOfManyKinds()
{
    QFETCH(QByteArray, bytes);
    const QImage image = imageFromBytes(bytes);
    QCOMPARE(image.size(), QSize(12, 8));
    QVERIFY(image.pixelColor(6, 4).red() > 250 && image.pixelColor(6, 4).green() < 5);
}

void ImageBytesTest::readsNothingFromOtherBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("a text") << QByteArrayLiteral("No picture at all");
    QTest::newRow("the start of a PNG alone") << redIn("png").first(8);
}

void ImageBytesTest::readsNothingFromOtherBytes()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(imageFromBytes(bytes).isNull());
}

QTEST_GUILESS_MAIN(ImageBytesTest)
#include "tst_imagebytes.moc"
