#include "platform/portable/documentkind.h"
#include "platform/portable/fileicon.h"
#include "platform/portable/iconfile.h"
#include "platform/portable/iconplanes.h"
#include "tests/pictures.h"
#include "tests/platform/standinapplications.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QtEndian>

#include <sys/stat.h>

namespace {

using Elements = QList<std::pair<QByteArray, QByteArray>>;

QByteArray png(const QColor &color, int side)
{
    return pngOf(color, {side, side});
}

QByteArray element(const QByteArray &type, const QByteArray &content)
{
    QByteArray length(4, '\0');
    qToBigEndian(quint32(content.size() + 8), length.data());
    return type + length + content;
}

QByteArray iconFile(const Elements &elements)
{
    QByteArray content;
    for (const auto &[type, bytes] : elements)
        content += element(type, bytes);
    return element("icns", content);
}

/// One plane of a colour, packed in runs.
QByteArray runs(int value, int count)
{
    QByteArray packed;
    for (; count > 2; count -= std::min(count, 130)) {
        packed += static_cast<char>(std::min(count, 130) + 125);
        packed += static_cast<char>(value);
    }
    return count > 0 ? packed + char(count - 1) + QByteArray(count, static_cast<char>(value))
                     : packed;
}

QByteArray planes(const QColor &color, int side)
{
    const int count = side * side;
    return runs(color.red(), count) + runs(color.green(), count) + runs(color.blue(), count);
}

QByteArray argb(const QColor &color, int side)
{
    return "ARGB" + runs(color.alpha(), side * side) + planes(color, side);
}

QColor middle(const QImage &image)
{
    return image.pixelColor(image.rect().center());
}

} // namespace

class PortableIconsTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void choosesThePictureThatSuits_data();
    void choosesThePictureThatSuits();
    void readsEveryKindOfElement_data();
    void readsEveryKindOfElement();
    void takesTheNextPictureForADamagedOne();
    void survivesDamagedIconFiles_data();
    void survivesDamagedIconFiles();
    void survivesRandomDamage();
    void looksIntoNoHugeFiles();
    void waitsForNoPipe_data();
    void waitsForNoPipe();
    void unpacksMixedRuns();
    void bundlesBringTheirIcon_data();
    void bundlesBringTheirIcon();
    void brokenBundlesLookLikeApplications_data();
    void brokenBundlesLookLikeApplications();
    void foldersBringTheirIcon();
    void anIconIsScaledToFit();
    void picturesAreShownThemselves_data();
    void picturesAreShownThemselves();
    void whatIsGoneIsAPlainDocument();
    void kindsLookDifferent();
    void programsWithoutExtensionAreKnown();
    void tellsKindsByName_data();
    void tellsKindsByName();

private:
    FileURL write(const QString &path, const QByteArray &bytes);

    StandInApplications m_mac{};
};

void PortableIconsTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

FileURL PortableIconsTest::write(const QString &path, const QByteArray &bytes)
{
    FileURL url = m_mac.at(path);
    m_mac.files.createDirectories(url.deletingLastPathComponent());
    m_mac.files.writeAtomically(url, bytes);
    return url;
}

void PortableIconsTest::choosesThePictureThatSuits_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("expected");
    for (const auto &[side, expected] : QList<std::pair<int, int>>{
             {8, 32}, {32, 32}, {33, 64}, {64, 64}, {65, 256}, {256, 256}, {300, 512}, {900, 512}})
        QTest::addRow("%d", side) << side << expected;
}

void PortableIconsTest::choosesThePictureThatSuits()
{
    QFETCH(int, side);
    const FileURL file = write(QStringLiteral("/choice.icns"),
                               iconFile({{"TOC ", "noise"},
                                         {"ic09", png(Qt::red, 512)},
                                         {"ic11", png(Qt::red, 32)},
                                         {"ic08", png(Qt::red, 256)},
                                         {"info", "noise"},
                                         {"ic12", png(Qt::red, 64)}}));
    const QImage image = iconFilePicture(file, side);
    QTEST(image.width(), "expected");
}

void PortableIconsTest::readsEveryKindOfElement_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("side");
    QTest::addColumn<QColor>("expected");
    const QColor color(10, 120, 230);
    for (const auto &[type, side] : QList<std::pair<const char *, int>>{{"icp4", 16},
                                                                        {"icp5", 32},
                                                                        {"icp6", 64},
                                                                        {"ic07", 128},
                                                                        {"ic08", 256},
                                                                        {"ic09", 512},
                                                                        {"ic10", 1024},
                                                                        {"ic11", 32},
                                                                        {"ic12", 64},
                                                                        {"ic13", 256},
                                                                        {"ic14", 512},
                                                                        {"ic04", 16},
                                                                        {"ic05", 32}})
        QTest::addRow("%s as a picture file", type)
            << iconFile({{type, png(color, side)}}) << side << color;
    const QColor faint(10, 120, 230, 77);
    for (const auto &[type, side] : QList<std::pair<const char *, int>>{
             {"ic04", 16}, {"ic05", 32}, {"icsb", 18}, {"icsB", 36}})
        QTest::addRow("%s as planes", type)
            << iconFile({{type, argb(faint, side)}}) << side << faint;
    const auto withMask
        = [&](const char *type, const char *mask, int side, const QByteArray &padding = {}) {
              QTest::addRow("%s with its mask", type)
                  << iconFile({{mask, QByteArray(qsizetype{side} * side, char(77))},
                               {type, padding + planes(faint, side)}})
                  << side << faint;
          };
    withMask("is32", "s8mk", 16);
    withMask("il32", "l8mk", 32);
    withMask("ih32", "h8mk", 48);
    withMask("it32", "t8mk", 128, QByteArray(4, '\0'));
    QTest::newRow("without its mask") << iconFile({{"il32", planes(color, 32)}}) << 32 << color;
    QTest::newRow("black and white, with its mask")
        << iconFile({{"ICN#", QByteArray(256, '\xff')}}) << 32 << QColor(Qt::black);
    QTest::newRow("a plain picture file") << png(color, 40) << 40 << color;
}

void PortableIconsTest::readsEveryKindOfElement()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, side);
    const QImage image = iconFilePicture(write(QStringLiteral("/kind.icns"), bytes), 16);
    QCOMPARE(image.size(), QSize(side, side));
    QTEST(middle(image), "expected");
    QCOMPARE(image.pixelColor(0, side - 1), middle(image));
}

void PortableIconsTest::takesTheNextPictureForADamagedOne()
{
    QByteArray damaged = png(Qt::red, 64);
    damaged.truncate(60);
    const FileURL file = write(
        QStringLiteral("/damaged.icns"),
        iconFile({{"ic12", damaged}, {"ic08", png(Qt::blue, 256)}, {"ic11", png(Qt::green, 32)}}));
    QCOMPARE(middle(iconFilePicture(file, 64)), QColor(Qt::blue));
}

void PortableIconsTest::survivesDamagedIconFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = iconFile({{"ic11", png(Qt::red, 32)}});
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("no icon");
    QTest::newRow("a header only") << good.left(8);
    QTest::newRow("cut off in an element's header") << good.left(12);
    QTest::newRow("cut off in an element") << good.left(40);
    QTest::newRow("no element") << iconFile({});
    QTest::newRow("an element of length 0") << element("icns", QByteArray("ic07\0\0\0\0", 8));
    QTest::newRow("an endless element") << element("icns", QByteArray("ic07\xff\xff\xff\xff", 8));
    QTest::newRow("planes that end early") << iconFile({{"ic04", "ARGB\x7f"}});
    QTest::newRow("no planes") << iconFile({{"ic04", ""}});
    QTest::newRow("a short mask") << iconFile({{"is32", planes(Qt::red, 16)}, {"s8mk", "x"}});
    QTest::newRow("elements without end")
        << element("icns", element("ic07", {}).repeated(5000) + element("ic11", png(Qt::red, 32)));
    QTest::newRow("a huge picture")
        << iconFile({{"ic10", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\xff\xff\xff\xff", 20)}});
}

void PortableIconsTest::survivesDamagedIconFiles()
{
    QFETCH(QByteArray, bytes);
    const FileURL file = write(QStringLiteral("/broken.icns"), bytes);
    QVERIFY(iconFilePicture(file, 64).isNull());
}

void PortableIconsTest::survivesRandomDamage()
{
    // What decoders of pictures say of damaged ones is no concern here.
    const auto silent = [](QtMsgType, const QMessageLogContext &, const QString &) {};
    const QtMessageHandler before = qInstallMessageHandler(silent);
    const QByteArray good = iconFile({{"ic11", png(Qt::red, 32)},
                                      {"ic04", argb(Qt::blue, 16)},
                                      {"is32", planes(Qt::red, 16)},
                                      {"s8mk", QByteArray(256, '\x7f')}});
    quint32 random = 1;
    const auto next = [&random] { return random = random * 1664525U + 1013904223U; };
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes = good;
        for (int flip = 0; flip < 4; ++flip)
            bytes[qsizetype(next() >> 8U) % bytes.size()] = static_cast<char>(next() >> 24U);
        const QImage image = iconFilePicture(write(QStringLiteral("/random.icns"), bytes), 16);
        QVERIFY(image.width() <= 1 << 15);
    }
    qInstallMessageHandler(before);
}

void PortableIconsTest::looksIntoNoHugeFiles()
{
    const FileURL file
        = write(QStringLiteral("/huge.icns"), iconFile({{"ic11", png(Qt::red, 32)}}));
    QVERIFY(!iconFilePicture(file, 32).isNull());
    QVERIFY(QFile::resize(file.path(), 3'000'000'000)); // of which the disk holds next to nothing
    QVERIFY(iconFilePicture(file, 32).isNull());
}

void PortableIconsTest::waitsForNoPipe_data()
{
    QTest::addColumn<QString>("pipe");
    QTest::addColumn<QString>("item");
    QTest::newRow("a picture's name") << QStringLiteral("/a.png") << QStringLiteral("/a.png");
    QTest::newRow("an icon file's name") << QStringLiteral("/a.icns") << QStringLiteral("/a.icns");
    QTest::newRow("a folder's icon") << QStringLiteral("/pipes/Icon\r") << QStringLiteral("/pipes");
}

void PortableIconsTest::waitsForNoPipe()
{
    QFETCH(QString, pipe);
    QFETCH(QString, item);
    const QString path = write(pipe, {}).path(); // and its folder
    QVERIFY(QFile::remove(path));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QCOMPARE(fileIcon(FileURL::file(path.chopped(pipe.size()) + item), 32).size(), QSize(32, 32));
}

void PortableIconsTest::unpacksMixedRuns()
{
    // Red: two literal bytes and a run of two; green: a run of four; blue: four literal bytes.
    const QByteArray packed("\x01\x0a\x14\x7f", 3);
    const QByteArray red = packed.left(3) + QByteArray("\x01\x1e\x1e", 3);
    const QByteArray green("\x81\x05", 2);
    const QByteArray blue("\x03\x01\x02\x03\x04", 5);
    const QByteArray planes = red + green + blue;
    const QImage image = imageFromPlanes(planes, QByteArrayView(), 2);
    QCOMPARE(image.size(), QSize(2, 2));
    QCOMPARE(image.pixelColor(0, 0), QColor(10, 5, 1));
    QCOMPARE(image.pixelColor(1, 0), QColor(20, 5, 2));
    QCOMPARE(image.pixelColor(0, 1), QColor(30, 5, 3));
    QCOMPARE(image.pixelColor(1, 1), QColor(30, 5, 4));
}

void PortableIconsTest::bundlesBringTheirIcon_data()
{
    QTest::addColumn<QString>("named");
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("bundleName");
    const auto row = [](const char *name, const char *named, const char *fileName,
                        const char *bundleName = "A.app") {
        QTest::newRow(name) << QString::fromLatin1(named) << QString::fromLatin1(fileName)
                            << QString::fromLatin1(bundleName);
    };
    row("named with its extension", "Icon.icns", "Icon.icns");
    row("named without it", "Icon", "Icon.icns");
    row("with a dot in its name", "Icon.2", "Icon.2.icns");
    row("without any extension", "Icon", "Icon");
    row("an extension in capitals", "Icon", "Icon.icns", "A.APP");
    row("a bundle that is no application", "Icon", "Icon.icns", "A.prefPane");
}

void PortableIconsTest::bundlesBringTheirIcon()
{
    QFETCH(QString, named);
    QFETCH(QString, fileName);
    QFETCH(QString, bundleName);
    const QTemporaryDir own(m_mac.root() + QStringLiteral("/XXXXXX"));
    const QString path = own.path().mid(m_mac.root().size()) + u'/' + bundleName;
    const FileURL bundle = m_mac.make(path, {{QStringLiteral("CFBundleIconFile"), named}}, "");
    write(path + QStringLiteral("/Contents/Resources/") + fileName,
          iconFile({{"ic08", png(Qt::red, 256)}}));
    for (const int side : {16, 100, 256, 300}) {
        const QImage icon = fileIcon(bundle, side);
        QCOMPARE(icon.size(), QSize(side, side));
        QCOMPARE(middle(icon), QColor(Qt::red));
    }
}

void PortableIconsTest::brokenBundlesLookLikeApplications_data()
{
    QTest::addColumn<QVariantMap>("info");
    QTest::addColumn<QByteArray>("icon");
    const QString key = QStringLiteral("CFBundleIconFile");
    QTest::newRow("no icon is named") << QVariantMap() << QByteArray();
    QTest::newRow("an empty name") << QVariantMap{{key, QString()}} << QByteArray();
    QTest::newRow("a missing file") << QVariantMap{{key, QStringLiteral("None")}} << QByteArray();
    QTest::newRow("a file elsewhere")
        << QVariantMap{{key, QStringLiteral("../../../x.icns")}} << QByteArray();
    QTest::newRow("a damaged file")
        << QVariantMap{{key, QStringLiteral("Icon")}} << QByteArray("noise");
}

void PortableIconsTest::brokenBundlesLookLikeApplications()
{
    QFETCH(QVariantMap, info);
    QFETCH(QByteArray, icon);
    const QTemporaryDir own(m_mac.root() + QStringLiteral("/XXXXXX"));
    const QString path = own.path().mid(m_mac.root().size()) + QStringLiteral("/A.app");
    write(QStringLiteral("/x.icns"), iconFile({{"ic08", png(Qt::red, 256)}}));
    const FileURL bundle = m_mac.make(path, info, "");
    if (!icon.isEmpty())
        write(path + QStringLiteral("/Contents/Resources/Icon.icns"), icon);
    m_mac.files.createDirectories(m_mac.at(QStringLiteral("/bare.app")));
    QCOMPARE(fileIcon(bundle, 64), fileIcon(m_mac.at(QStringLiteral("/bare.app")), 64));
}

void PortableIconsTest::foldersBringTheirIcon()
{
    m_mac.files.createDirectories(m_mac.at(QStringLiteral("/plain")));
    const QImage plain = fileIcon(m_mac.at(QStringLiteral("/plain")), 64);
    const FileURL custom
        = write(QStringLiteral("/custom/Icon\r"), iconFile({{"ic07", png(Qt::green, 128)}}))
              .deletingLastPathComponent();
    QCOMPARE(middle(fileIcon(custom, 64)), QColor(Qt::green));
    write(QStringLiteral("/custom/Icon\r"), "noise");
    QCOMPARE(fileIcon(custom, 64), plain);
}

void PortableIconsTest::anIconIsScaledToFit()
{
    const FileURL bundle
        = m_mac.make(QStringLiteral("/Wide.app"),
                     {{QStringLiteral("CFBundleIconFile"), QStringLiteral("Wide.png")}}, "");
    write(QStringLiteral("/Wide.app/Contents/Resources/Wide.png"), pngOf(Qt::red, {200, 100}));
    const QImage icon = fileIcon(bundle, 50);
    QCOMPARE(icon.size(), QSize(50, 50));
    QCOMPARE(middle(icon), QColor(Qt::red));
    QCOMPARE(icon.pixelColor(1, 25), QColor(Qt::red));
    QCOMPARE(icon.pixelColor(25, 5).alpha(), 0);
    QCOMPARE(icon.pixelColor(25, 45).alpha(), 0);
}

void PortableIconsTest::picturesAreShownThemselves_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("png") << QStringLiteral("/photo.png") << pngOf(Qt::red, {300, 200});
    QTest::newRow("small") << QStringLiteral("/small.png") << pngOf(Qt::red, {4, 3});
    QTest::newRow("narrow") << QStringLiteral("/narrow.png") << pngOf(Qt::red, {3000, 600});
    QTest::newRow("bmp") << QStringLiteral("/photo.bmp")
                         << encoded(filledImage(Qt::red, {300, 200}), "BMP");
}

void PortableIconsTest::picturesAreShownThemselves()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, bytes);
    const QImage icon = fileIcon(write(path, bytes), 64);
    QCOMPARE(icon.size(), QSize(64, 64));
    QVERIFY(middle(icon).red() > 200 && middle(icon).green() < 60);
    QCOMPARE(icon.pixelColor(0, 0).alpha(), 0);
    const QImage damaged = fileIcon(write(path, "noise"), 64);
    QVERIFY(damaged != icon); // the sheet of its kind
    QVERIFY(middle(damaged).alpha() == 255);
}

void PortableIconsTest::whatIsGoneIsAPlainDocument()
{
    const QImage plain = fileIcon(write(QStringLiteral("/document"), "text"), 64);
    for (const char *path : {"/gone", "/gone.app", "/gone/", "/gone.png", "/a/b/c.txt"})
        QCOMPARE(fileIcon(m_mac.at(QString::fromLatin1(path)), 64), plain);
    QVERIFY(QFile::link(m_mac.root() + QStringLiteral("/gone"),
                        m_mac.root() + QStringLiteral("/dangling")));
    QCOMPARE(fileIcon(m_mac.at(QStringLiteral("/dangling")), 64), plain);
}

void PortableIconsTest::kindsLookDifferent()
{
    for (const int side : {16, 32, 64}) {
        QList<QImage> icons;
        for (const char *name : {"a", "a.txt", "a.cpp", "a.html", "a.svg", "a.mp3", "a.mp4",
                                 "a.pdf", "a.zip", "a.csv", "a.odp", "a.ttf", "a.dmg"}) {
            const QImage icon
                = fileIcon(write(QStringLiteral("/kinds/") + QString::fromLatin1(name), "x"), side);
            QCOMPARE(icon.size(), QSize(side, side));
            QVERIFY2(!icons.contains(icon), name);
            icons.append(icon);
        }
    }
}

void PortableIconsTest::programsWithoutExtensionAreKnown()
{
    const FileURL tool = write(QStringLiteral("/tool"), "#!/bin/sh\n");
    const QImage before = fileIcon(tool, 64);
    QCOMPARE(::chmod(tool.nativePath().constData(), 0755), 0);
    QVERIFY(fileIcon(tool, 64) != before);
}

void PortableIconsTest::tellsKindsByName_data()
{
    QTest::addColumn<DocumentKind>("expected");
    QTest::newRow("notes.txt") << DocumentKind::Text;
    QTest::newRow("README.md") << DocumentKind::Text;
    QTest::newRow("letter.docx") << DocumentKind::Text;
    QTest::newRow("letter.odt") << DocumentKind::Text;
    QTest::newRow("letter.rtf") << DocumentKind::Text;
    QTest::newRow("main.cpp") << DocumentKind::Code;
    QTest::newRow("main.py") << DocumentKind::Code;
    QTest::newRow("app.js") << DocumentKind::Code;
    QTest::newRow("data.json") << DocumentKind::Code;
    QTest::newRow("run.sh") << DocumentKind::Code;
    QTest::newRow("style.css") << DocumentKind::Code;
    QTest::newRow("page.html") << DocumentKind::WebPage;
    QTest::newRow("photo.JPG") << DocumentKind::Image;
    QTest::newRow("photo.heic") << DocumentKind::Image;
    QTest::newRow("drawing.svg") << DocumentKind::Image;
    QTest::newRow("song.mp3") << DocumentKind::Audio;
    QTest::newRow("song.m4a") << DocumentKind::Audio;
    QTest::newRow("film.mov") << DocumentKind::Video;
    QTest::newRow("film.mp4") << DocumentKind::Video;
    QTest::newRow("paper.pdf") << DocumentKind::PDF;
    QTest::newRow("all.zip") << DocumentKind::Archive;
    QTest::newRow("all.tar.gz") << DocumentKind::Archive;
    QTest::newRow("table.xlsx") << DocumentKind::Spreadsheet;
    QTest::newRow("table.csv") << DocumentKind::Spreadsheet;
    QTest::newRow("talk.pptx") << DocumentKind::Presentation;
    QTest::newRow("type.otf") << DocumentKind::Font;
    QTest::newRow("disk.dmg") << DocumentKind::DiskImage;
    QTest::newRow("disk.iso") << DocumentKind::DiskImage;
    QTest::newRow("whatever") << DocumentKind::Plain;
    QTest::newRow("what.ever") << DocumentKind::Plain;
    QTest::newRow("") << DocumentKind::Plain;
}

void PortableIconsTest::tellsKindsByName()
{
    QTEST(documentKind(QString::fromLatin1(QTest::currentDataTag())), "expected");
}

QTEST_MAIN(PortableIconsTest)
#include "tst_portableicons.moc"
