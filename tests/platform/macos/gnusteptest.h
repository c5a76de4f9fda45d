#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

/// GNUstep takes the user's home from the password database, and its defaults directory from a
/// configuration file: only that keeps a test out of the real home.
inline void keepGNUstepInside(const QTemporaryDir &directory)
{
    QFile configuration(directory.filePath(QStringLiteral("GNUstep.conf")));
    if (!configuration.open(QFile::WriteOnly))
        qFatal("Cannot write %s", qPrintable(configuration.fileName()));
    configuration.write("GNUSTEP_USER_DEFAULTS_DIR=" + QFile::encodeName(directory.path())
                        + "/Defaults\n");
    qputenv("GNUSTEP_CONFIG_FILE", QFile::encodeName(configuration.fileName()));
    for (const char *variable : {"TMPDIR", "TMP", "TEMP"}) // GNUstep looks for the short ones
        qputenv(variable, QFile::encodeName(directory.path()));
}

/// A test's main function, in place of QTEST_GUILESS_MAIN. GNUstep reads its configuration before
/// main: so the program starts itself once more, in a directory of its own.
template <typename Test> int runWithFoundation(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (!qEnvironmentVariableIsSet("GNUSTEP_CONFIG_FILE")) {
        const QTemporaryDir directory;
        keepGNUstepInside(directory);
        return QProcess::execute(QCoreApplication::applicationFilePath(),
                                 QCoreApplication::arguments().mid(1));
    }
    Test test;
    return QTest::qExec(&test, argc, argv);
}
