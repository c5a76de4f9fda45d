#include "platform/macos/macuserdefaults.h"

#include "tests/platform/macos/gnusteptest.h"

#include <QDateTime>
#include <QDir>

#include <limits>

class MacUserDefaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void absentIntegerIsZero();
    void integersComeBack_data();
    void integersComeBack();
    void absentArrayIsNothing();
    void otherValueIsNoArray();
    void emptyArrayIsAnArray();
    void valuesComeBackWithTheirTypes_data();
    void valuesComeBackWithTheirTypes();
    void dockTilesComeBackInOrder();
    void valueThatIsNoPropertyListIsNotWritten();
    void domainThatCannotBeOpenedIsSilent();
    void writtenValuesReachTheDisk();
};

namespace {

const QString key = QStringLiteral("persistent-apps");
const QString number = QStringLiteral("NLC_dismissedUpdateBuild");
const QString absent = QStringLiteral("NLC_written by no test");

} // namespace

void MacUserDefaultsTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

void MacUserDefaultsTest::absentIntegerIsZero()
{
    QCOMPARE(MacUserDefaults().integer(absent), 0);
}

void MacUserDefaultsTest::integersComeBack_data()
{
    QTest::addColumn<qint64>("value");
    QTest::newRow("small") << qint64{42};
    QTest::newRow("negative") << qint64{-1};
    QTest::newRow("more than 32 bits") << qint64{5'000'000'000};
    QTest::newRow("largest") << std::numeric_limits<qint64>::max();
}

void MacUserDefaultsTest::integersComeBack()
{
    QFETCH(qint64, value);
    MacUserDefaults().setInteger(number, value);
    QCOMPARE(MacUserDefaults().integer(number), value);
}

void MacUserDefaultsTest::absentArrayIsNothing()
{
    QVERIFY(!MacUserDefaults().array(absent));
}

void MacUserDefaultsTest::otherValueIsNoArray()
{
    MacUserDefaults().setInteger(key, 3);
    QVERIFY(!MacUserDefaults().array(key));
}

void MacUserDefaultsTest::emptyArrayIsAnArray()
{
    MacUserDefaults().setArray(key, {});
    QCOMPARE(MacUserDefaults().array(key), QVariantList());
}

void MacUserDefaultsTest::valuesComeBackWithTheirTypes_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << QVariant(QStringLiteral("Ünï\U0001F4C1"));
    QTest::newRow("empty text") << QVariant(QStringLiteral(""));
    QTest::newRow("decomposed accent") << QVariant(QStringLiteral("e\u0301"));
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("false") << QVariant(false);
    QTest::newRow("one is no boolean") << QVariant(qint64{1});
    QTest::newRow("zero is no boolean") << QVariant(qint64{0});
    QTest::newRow("negative integer") << QVariant(qint64{-7});
    QTest::newRow("largest integer") << QVariant(std::numeric_limits<qint64>::max());
    QTest::newRow("integer above the signed range")
        << QVariant(std::numeric_limits<quint64>::max());
    QTest::newRow("real") << QVariant(0.5);
    QTest::newRow("real without a fraction") << QVariant(2.0);
    QTest::newRow("bytes") << QVariant(QByteArray("\0\xff\x01", 3));
    QTest::newRow("date") << QVariant(QDateTime({2024, 2, 29}, {12, 30, 5}, Qt::UTC));
    QTest::newRow("array") << QVariant(QVariantList{qint64{1}, QStringLiteral("two"), true});
    QTest::newRow("dictionary") << QVariant(
        QVariantMap{{QStringLiteral("a"), qint64{1}},
                    {QStringLiteral("b"), QVariantMap{{QStringLiteral("c"), QVariantList{}}}}});
}

void MacUserDefaultsTest::valuesComeBackWithTheirTypes()
{
    QFETCH(QVariant, value);
    MacUserDefaults().setArray(key, {value});
    const QVariantList array = MacUserDefaults().array(key).value_or(QVariantList());
    QCOMPARE(array.size(), 1);
    QCOMPARE(array.constFirst().typeId(), value.typeId());
    QCOMPARE(array.constFirst(), value);
}

void MacUserDefaultsTest::dockTilesComeBackInOrder()
{
    QVariantList tiles;
    for (int i = 0; i < 20; ++i) {
        const QVariantMap file{{QStringLiteral("_CFURLString"),
                                QStringLiteral("file:///Applications/App%20%1.app/").arg(i)},
                               {QStringLiteral("_CFURLStringType"), qint64{15}}};
        const QVariantMap data{{QStringLiteral("file-data"), file},
                               {QStringLiteral("file-label"), QStringLiteral("App %1").arg(i)}};
        tiles.append(QVariantMap{{QStringLiteral("tile-data"), data},
                                 {QStringLiteral("tile-type"), QStringLiteral("file-tile")}});
    }
    MacUserDefaults().setArray(key, tiles);
    QCOMPARE(MacUserDefaults().array(key), tiles);
}

void MacUserDefaultsTest::valueThatIsNoPropertyListIsNotWritten()
{
    const QVariantList before{QStringLiteral("kept")};
    MacUserDefaults().setArray(key, before);
    MacUserDefaults().setArray(key, {QStringLiteral("lost"), QVariant()});
    QCOMPARE(MacUserDefaults().array(key), before);
}

void MacUserDefaultsTest::domainThatCannotBeOpenedIsSilent()
{
    MacUserDefaults dock(QStringLiteral("com.apple.dock")); // GNUstep opens no other program's
    dock.setArray(key, {true});
    dock.setInteger(number, 1);
    dock.synchronize();
    QVERIFY(!dock.array(key));
    QCOMPARE(dock.integer(number), 0);
}

void MacUserDefaultsTest::writtenValuesReachTheDisk()
{
    MacUserDefaults().setInteger(number, 4711);
    MacUserDefaults().synchronize();
    const QDir defaults(qEnvironmentVariable("TMPDIR") + QStringLiteral("/Defaults"));
    bool isFound = false;
    for (const QString &name : defaults.entryList(QDir::Files)) {
        QFile file(defaults.filePath(name));
        QVERIFY(file.open(QFile::ReadOnly));
        isFound |= file.readAll().contains("4711");
    }
    QVERIFY(isFound);
}

int main(int argc, char **argv)
{
    return runWithFoundation<MacUserDefaultsTest>(argc, argv);
}

#include "tst_macuserdefaults.moc"
