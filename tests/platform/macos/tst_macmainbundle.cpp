#include "platform/macos/macmainbundle.h"

#include "tests/platform/macos/gnusteptest.h"

#include <QDir>

class MacMainBundleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void bundleIsADirectory();
    void versionIsTheInformationDictionarys();
};

void MacMainBundleTest::bundleIsADirectory()
{
    const FileURL url = MacMainBundle().url();
    QVERIFY(url.hasDirectoryPath());
    // For GNUstep, a tool's bundle is the folder of its resources, which lies beside it.
    QVERIFY2(url.path().startsWith(QCoreApplication::applicationDirPath()), qPrintable(url.path()));
}

void MacMainBundleTest::versionIsTheInformationDictionarys()
{
    QCOMPARE(MacMainBundle().version(), QStringLiteral("4711"));
}

int main(int argc, char **argv)
{
    return runWithFoundation<MacMainBundleTest>(argc, argv);
}

#include "tst_macmainbundle.moc"
