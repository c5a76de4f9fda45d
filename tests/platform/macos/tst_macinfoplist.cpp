#include "platform/error.h"
#include "platform/propertylist.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

/// The bundle's Info.plist, filled in with the build's own values.
class MacInfoPlistTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void saysWhatTheBundleIs_data();
    void saysWhatTheBundleIs();
    void isHighResolutionCapable();
    void leavesNoPlaceholder();
    void iconFileIsAnIcon();

private:
    QByteArray m_bytes;
    QVariantMap m_values;
};

void MacInfoPlistTest::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QFile file(QStringLiteral(COMPANION_INFO_PLIST));
    QVERIFY(file.open(QFile::ReadOnly));
    m_bytes = file.readAll();
    m_values = parsePropertyList(m_bytes, file.fileName()).toMap();
    QVERIFY(!m_values.isEmpty());
}

void MacInfoPlistTest::saysWhatTheBundleIs_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *key, const QString &value) {
        QTest::newRow(key) << QString::fromLatin1(key) << value;
    };
    row("CFBundleIdentifier", QStringLiteral("qx.Nestlet.Companion"));
    row("CFBundleName", QStringLiteral("Nestlet Companion"));
    row("CFBundleDisplayName", QStringLiteral("Nestlet Companion"));
    row("CFBundlePackageType", QStringLiteral("APPL"));
    row("CFBundleExecutable", QStringLiteral("nestlet-companion"));
    row("CFBundleIconFile", QStringLiteral("nestlet-companion.icns"));
    row("CFBundleVersion", QStringLiteral(COMPANION_BUILD));
    row("CFBundleShortVersionString", QStringLiteral(COMPANION_VERSION));
    row("LSMinimumSystemVersion", QStringLiteral("12.0"));
    row("NSPrincipalClass", QStringLiteral("NSApplication"));
}

void MacInfoPlistTest::saysWhatTheBundleIs()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QCOMPARE(m_values.value(key),
             QVariant(value)); // a text: numbers there are not read as versions
}

void MacInfoPlistTest::isHighResolutionCapable()
{
    QCOMPARE(m_values.value(QStringLiteral("NSHighResolutionCapable")), QVariant(true));
}

void MacInfoPlistTest::leavesNoPlaceholder()
{
    QVERIFY(!m_bytes.contains("${"));
    QVERIFY(!m_bytes.contains("<string></string>"));
}

void MacInfoPlistTest::iconFileIsAnIcon()
{
    QFile icon(QStringLiteral(COMPANION_ICON));
    QVERIFY(icon.open(QFile::ReadOnly));
    QCOMPARE(QFileInfo(icon).fileName(),
             m_values.value(QStringLiteral("CFBundleIconFile")).toString());
    QCOMPARE(icon.read(4), QByteArray("icns"));
}

QTEST_GUILESS_MAIN(MacInfoPlistTest)

#include "tst_macinfoplist.moc"
