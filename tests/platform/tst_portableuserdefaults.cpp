#include "platform/portable/portableuserdefaults.h"
#include "platform/posix/posixfilesystem.h"
#include "platform/propertylist.h"
#include "tests/platform/unprivileged.h"

#include <QTemporaryDir>
#include <QTest>
#include <QVariantMap>

#include <sys/stat.h>

#include <limits>

namespace {

const QString tiles = QStringLiteral("persistent-apps");

QVariantMap dockValues()
{
    const QVariantMap data{{QStringLiteral("file-label"), QStringLiteral("Caf\u00e9")},
                           {QStringLiteral("book"), QByteArray("\0\1", 2)}};
    return {{tiles,
             QVariantList{QVariantMap{{QStringLiteral("tile-data"), data},
                                      {QStringLiteral("GUID"), qint64{3'000'000'000}}}}},
            {QStringLiteral("tilesize"), 48.5},
            {QStringLiteral("autohide"), true},
            {QStringLiteral("empty"), QVariantList()}};
}

} // namespace

class PortableUserDefaultsTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void absentWithoutAFile();
    void makesABinaryFile();
    void keepsFormatAndOtherKeys_data();
    void keepsFormatAndOtherKeys();
    void onlyArraysAreArrays();
    void readsIntegersLeniently_data();
    void readsIntegersLeniently();
    void seesWhatOthersWrite();
    void putsADamagedFileAside();
    void writesThatFailAreLost();

private:
    [[nodiscard]] QVariantMap stored() const
    {
        return parsePropertyList(m_files.read(m_file), m_file.path()).toMap();
    }
    void store(const QVariantMap &values, PropertyListFormat format) const
    {
        m_files.createDirectories(m_file.deletingLastPathComponent());
        m_files.writeAtomically(m_file, serializePropertyList(values, format));
    }

    const PosixFileSystem m_files{};
    std::optional<QTemporaryDir> m_directory{};
    FileURL m_file{};
};

void PortableUserDefaultsTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_directory.emplace();
    m_file
        = FileURL::file(m_directory->filePath(QStringLiteral("Preferences/com.apple.dock.plist")));
}

void PortableUserDefaultsTest::absentWithoutAFile()
{
    const PortableUserDefaults defaults(m_file);
    QVERIFY(!defaults.array(tiles));
    QCOMPARE(defaults.integer(tiles), 0);
    QVERIFY(!m_files.exists(m_file));
}

void PortableUserDefaultsTest::makesABinaryFile()
{
    PortableUserDefaults defaults(m_file);
    defaults.setInteger(QStringLiteral("n"), 42);
    defaults.synchronize();
    QVERIFY(m_files.read(m_file).startsWith("bplist00"));
    QCOMPARE(PortableUserDefaults(m_file).integer(QStringLiteral("n")), 42);
}

void PortableUserDefaultsTest::keepsFormatAndOtherKeys_data()
{
    QTest::addColumn<PropertyListFormat>("format");
    QTest::newRow("XML") << PropertyListFormat::XML;
    QTest::newRow("binary") << PropertyListFormat::Binary;
}

void PortableUserDefaultsTest::keepsFormatAndOtherKeys()
{
    QFETCH(PropertyListFormat, format);
    QVariantMap expected = dockValues();
    store(expected, format);
    PortableUserDefaults defaults(m_file);
    QCOMPARE(defaults.array(tiles), expected.value(tiles).toList());
    expected[tiles] = QVariantList{QStringLiteral("x")};
    defaults.setArray(tiles, expected.value(tiles).toList());
    QCOMPARE(stored(), expected);
    QCOMPARE(m_files.read(m_file), serializePropertyList(expected, format));
}

void PortableUserDefaultsTest::onlyArraysAreArrays()
{
    store({{QStringLiteral("map"), QVariantMap()},
           {QStringLiteral("text"), QStringLiteral("x")},
           {QStringLiteral("list"), QVariantList()}},
          PropertyListFormat::XML);
    const PortableUserDefaults defaults(m_file);
    QVERIFY(!defaults.array(QStringLiteral("map")));
    QVERIFY(!defaults.array(QStringLiteral("text")));
    QCOMPARE(defaults.array(QStringLiteral("list")), QVariantList());
}

void PortableUserDefaultsTest::readsIntegersLeniently_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<qint64>("expected");
    QTest::newRow("integer") << QVariant(qint64{-7}) << qint64{-7};
    QTest::newRow("boolean") << QVariant(true) << qint64{1};
    QTest::newRow("real") << QVariant(3.9) << qint64{3};
    QTest::newRow("endless real") << QVariant(1e300) << std::numeric_limits<qint64>::max();
    QTest::newRow("text") << QVariant(QStringLiteral("12abc")) << qint64{12};
    QTest::newRow("other text") << QVariant(QStringLiteral("abc")) << qint64{0};
    QTest::newRow("array") << QVariant(QVariantList{qint64{1}}) << qint64{0};
}

void PortableUserDefaultsTest::readsIntegersLeniently()
{
    QFETCH(QVariant, value);
    store({{QStringLiteral("n"), value}}, PropertyListFormat::XML);
    QTEST(PortableUserDefaults(m_file).integer(QStringLiteral("n")), "expected");
}

void PortableUserDefaultsTest::seesWhatOthersWrite()
{
    const PortableUserDefaults reader(m_file);
    PortableUserDefaults writer(m_file);
    writer.setInteger(QStringLiteral("n"), 1);
    QCOMPARE(reader.integer(QStringLiteral("n")), 1);
    writer.setInteger(QStringLiteral("n"), 2);
    QCOMPARE(reader.integer(QStringLiteral("n")), 2);
}

void PortableUserDefaultsTest::putsADamagedFileAside()
{
    PortableUserDefaults defaults(m_file);
    const FileURL directory = m_file.deletingLastPathComponent();
    const FileURL first = directory.appendingFile(QStringLiteral("com.apple.dock.plist.damaged"));
    const FileURL second
        = directory.appendingFile(QStringLiteral("com.apple.dock.plist-2.damaged"));
    m_files.createDirectories(directory);
    for (const char *damaged : {"<plist><array/></plist>", "bplist00 but no more"}) {
        m_files.writeAtomically(m_file, damaged);
        QVERIFY(!defaults.array(tiles));
        QCOMPARE(m_files.read(m_file), QByteArray(damaged)); // reading changes nothing
        defaults.setInteger(QStringLiteral("n"), 1);
        QCOMPARE(stored(), (QVariantMap{{QStringLiteral("n"), qint64{1}}}));
    }
    QCOMPARE(m_files.read(first), QByteArray("<plist><array/></plist>"));
    QCOMPARE(m_files.read(second), QByteArray("bplist00 but no more"));
}

void PortableUserDefaultsTest::writesThatFailAreLost()
{
    store(dockValues(), PropertyListFormat::XML);
    PortableUserDefaults defaults(m_file);
    defaults.setArray(tiles, {QVariant(QPoint(1, 2))}); // not a property-list value
    QCOMPARE(stored(), dockValues());

    const FileURL directory = m_file.deletingLastPathComponent();
    QVERIFY(Unprivileged::handOver(m_directory->path()));
    QVERIFY(Unprivileged::handOver(directory.path()));
    QCOMPARE(::chmod(directory.nativePath().constData(), 0555), 0);
    {
        const Unprivileged user;
        QVERIFY(user.isInForce());
        defaults.setInteger(QStringLiteral("n"), 1);
    }
    QCOMPARE(::chmod(directory.nativePath().constData(), 0755), 0);
    QCOMPARE(stored(), dockValues());
}

QTEST_GUILESS_MAIN(PortableUserDefaultsTest)
#include "tst_portableuserdefaults.moc"
