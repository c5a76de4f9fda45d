#include "bench/ui/librarymac.h"

#include "bench/require.h"
#include "model/libraryjson.h"
#include "model/nestlet.h"
#include "tests/librarygenerator.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QtEndian>

namespace {

constexpr int applicationCount = 60;
constexpr int pictureCount = 12; // that differ: more would take longer to draw than to measure
constexpr const char *nowhere = "http://127.0.0.1:9/"; // no feed of updates

void write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
            "a file cannot be written");
}

// A disc on a ground, with a grain that keeps its file as large as that of a photograph.
QByteArray picture(int side, int number, int grain)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor::fromHsv(number * 37 % 360, 160, 220));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor::fromHsv(number * 71 % 360, 200, 120));
    painter.drawEllipse(image.rect().adjusted(side / 5, side / 5, -side / 5, -side / 5));
    painter.end();
    QRandomGenerator random(static_cast<quint32>(number) + 1);
    for (int dot = 0; dot < grain; ++dot)
        image.setPixel(random.bounded(side), random.bounded(side), random.generate() | 0xFF000000U);
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    image.save(&file, "PNG");
    return file.data();
}

QByteArray bigEndian(qsizetype number)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(static_cast<quint32>(number), bytes.data());
    return bytes;
}

// An icon file with the sizes that an application's has: a header with its length, and so before
// each picture.
QByteArray iconFile(int number)
{
    constexpr qsizetype header = 8;
    QByteArray pictures;
    for (const auto &[type, side] : {std::pair("icp4", 16), std::pair("icp5", 32),
                                     std::pair("ic07", 128), std::pair("ic08", 256)}) {
        const QByteArray bytes = picture(side, number, side * 4);
        pictures += type + bigEndian(bytes.size() + header) + bytes;
    }
    return "icns" + bigEndian(pictures.size() + header) + pictures;
}

QString applicationName(int number)
{
    return QStringLiteral("Application %1").arg(number);
}

const QByteArray informationText = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict>
<key>CFBundleIdentifier</key><string>%1</string>
<key>CFBundleName</key><string>%2</string>
<key>CFBundleExecutable</key><string>program</string>
<key>CFBundleIconFile</key><string>Icon</string>
<key>CFBundlePackageType</key><string>APPL</string>
<key>CFBundleShortVersionString</key><string>1.0</string>
<key>CFBundleVersion</key><string>1</string>
</dict></plist>
)";

} // namespace

LibraryMac::LibraryMac(int folders, int itemsPerFolder)
{
    require(m_root.isValid(), "no temporary folder can be made");
    addApplication(QStringLiteral("Nestlet"), nestletBundleIdentifier, iconFile(0));
    QList<QByteArray> icons;
    for (int number = 0; number < pictureCount; ++number)
        icons.append(iconFile(number));
    for (int number = 0; number < applicationCount; ++number) {
        addApplication(applicationName(number),
                       QStringLiteral("qx.bench.application%1").arg(number),
                       icons.at(number % pictureCount));
    }
    addLibrary(folders, itemsPerFolder);
}

QList<QByteArray> LibraryMac::environment() const
{
    return {"NESTLET_COMPANION_ROOT=" + QFile::encodeName(m_root.path()),
            QByteArray("NESTLET_COMPANION_FEED=") + nowhere,
            "HOME=" + QFile::encodeName(inside(QStringLiteral("/Users/me")))};
}

void LibraryMac::use() const
{
    qputenv("NESTLET_COMPANION_ROOT", QFile::encodeName(m_root.path()));
    qputenv("NESTLET_COMPANION_FEED", nowhere);
}

QString LibraryMac::inside(const QString &path) const
{
    return m_root.path() + path;
}

void LibraryMac::addApplication(const QString &name, const QString &identifier,
                                const QByteArray &icon) const
{
    const QString contents = inside(QStringLiteral("/Applications/%1.app/Contents/").arg(name));
    write(contents + QStringLiteral("Info.plist"),
          QString::fromUtf8(informationText).arg(identifier, name).toUtf8());
    write(contents + QStringLiteral("Resources/Icon.icns"), icon);
    write(contents + QStringLiteral("MacOS/program"), "#!/bin/sh\n");
}

void LibraryMac::addLibrary(int folders, int itemsPerFolder) const
{
    QList<QByteArray> pictures;
    for (int number = 0; number < pictureCount; ++number)
        pictures.append(picture(160, number, 8'000));
    DockFolderLibrary library = LibraryGenerator(1).regularLibrary(
        {.folders = folders, .itemsPerFolder = itemsPerFolder});
    for (int number = 0; number < folders; ++number) {
        DockFolder &folder = library.folders[number];
        folder.iconSymbol.reset();
        if (number % 2 == 0)
            folder.customIconData = pictures.at(number / 2 % pictureCount);
        for (int item = 0; item < itemsPerFolder; ++item) {
            const QString name = applicationName((number * 7 + item) % applicationCount);
            folder.items[item].name = name;
            folder.items[item].url
                = FileURL::directory(inside(QStringLiteral("/Applications/%1.app").arg(name)));
        }
    }
    write(inside(QStringLiteral("/Users/me/Library/Application Support/Nestlet/Nestlet.json")),
          encodeLibrary(library));
}
