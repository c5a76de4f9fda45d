#include "sandbox/common/docktile.h"
#include "sandbox/common/files.h"

#include "platform/propertylist.h"

#include <QTemporaryDir>
#include <QTest>

class DockPreferencesTileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void describesAnApplicationAsTheDockDoes();
    void findsThePathOfATile_data();
    void findsThePathOfATile();
};

void DockPreferencesTileTest::describesAnApplicationAsTheDockDoes()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("Über Notes.app"));
    writeFile(path + u"/Contents/Info.plist",
              serializePropertyList(
                  QVariantMap{{QStringLiteral("CFBundleIdentifier"), QStringLiteral("sample.x")}},
                  PropertyListFormat::XML));
    const QVariantMap tile = dockTileFor(AppBundle::at(path).value(), path);
    const QVariantMap data = tile.value(QStringLiteral("tile-data")).toMap();
    const QVariantMap file = data.value(QStringLiteral("file-data")).toMap();
    QCOMPARE(tile.value(QStringLiteral("tile-type")).toString(), QStringLiteral("file-tile"));
    QCOMPARE(tile.value(QStringLiteral("GUID")).metaType(), QMetaType::fromType<qint64>());
    QCOMPARE(data.value(QStringLiteral("file-label")).toString(), QStringLiteral("Über Notes"));
    QCOMPARE(data.value(QStringLiteral("bundle-identifier")).toString(),
             QStringLiteral("sample.x"));
    QCOMPARE(file.value(QStringLiteral("_CFURLStringType")).toInt(), 15);
    QVERIFY(
        file.value(QStringLiteral("_CFURLString")).toString().endsWith(u"/%C3%9Cber%20Notes.app/"));
    QCOMPARE(pathOfDockTile(tile).value(), path);
}

void DockPreferencesTileTest::findsThePathOfATile_data()
{
    QTest::addColumn<QVariant>("url");
    QTest::addColumn<QString>("path"); // empty: none
    QTest::newRow("a file URL") << QVariant(QStringLiteral("file:///A/My%20App.app/"))
                                << QStringLiteral("/A/My App.app");
    QTest::newRow("a plain path") << QVariant(QStringLiteral("/A/./My App.app/"))
                                  << QStringLiteral("/A/My App.app");
    QTest::newRow("nothing") << QVariant() << QString();
}

void DockPreferencesTileTest::findsThePathOfATile()
{
    QFETCH(QVariant, url);
    QFETCH(QString, path);
    const QVariantMap file{{QStringLiteral("_CFURLString"), url}};
    const QVariantMap data{{QStringLiteral("file-data"), file}};
    const QVariantMap tile{{QStringLiteral("tile-data"), data}};
    QCOMPARE(pathOfDockTile(tile).value_or(QString()), path);
}

QTEST_GUILESS_MAIN(DockPreferencesTileTest)
#include "tst_dockpreferencestile.moc"
