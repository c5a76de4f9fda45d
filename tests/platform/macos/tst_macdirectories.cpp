#include "platform/macos/macdirectories.h"

#include "tests/platform/macos/gnusteptest.h"

#include <QDir>

class MacDirectoriesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void allAreDirectoryURLs();
    void userDirectoriesLieInTheHome();
    void homeIsTheUsers();
    void temporaryDirectoryIsThere();
    void systemPathsKeepTheirSlash();
};

void MacDirectoriesTest::allAreDirectoryURLs()
{
    const MacDirectories directories;
    for (const FileURL &url : {directories.applicationSupport(), directories.userApplications(),
                               directories.home(), directories.temporary()}) {
        QVERIFY(url.isFileURL());
        QVERIFY2(url.hasDirectoryPath(), qPrintable(url.text()));
    }
}

void MacDirectoriesTest::userDirectoriesLieInTheHome()
{
    const MacDirectories directories;
    const QString home = directories.home().path();
    QVERIFY(directories.applicationSupport().path().startsWith(home + u'/'));
    QVERIFY(directories.applicationSupport().path().contains(u"Library"));
    QVERIFY(directories.userApplications().path().startsWith(home + u'/'));
    QCOMPARE(directories.userApplications().lastPathComponent(), QStringLiteral("Applications"));
}

void MacDirectoriesTest::homeIsTheUsers()
{
    QVERIFY(QDir(MacDirectories().home().path()).exists());
}

void MacDirectoriesTest::temporaryDirectoryIsThere()
{
    QVERIFY(QDir(MacDirectories().temporary().path()).exists());
}

void MacDirectoriesTest::systemPathsKeepTheirSlash()
{
    const MacDirectories directories;
    QCOMPARE(directories.system(QStringLiteral("/usr/bin/codesign")).text(),
             QStringLiteral("file:///usr/bin/codesign"));
    QCOMPARE(directories.system(QStringLiteral("/System/Applications/")).text(),
             QStringLiteral("file:///System/Applications/"));
}

int main(int argc, char **argv)
{
    return runWithFoundation<MacDirectoriesTest>(argc, argv);
}

#include "tst_macdirectories.moc"
