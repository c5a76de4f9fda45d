#include "builder/companionerror.h"
#include "builder/infoplist.h"
#include "bundles.h"
#include "model/uuidtext.h"
#include "platform/propertylist.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakefilesystem.h"

#include <QRegularExpression>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>

namespace {

const QString folderIDText = QStringLiteral("1A2B3C4D-5E6F-4A8B-9CAD-0123456789EF");
const QUuid folderID{folderIDText};
const QString folderIDKey = QStringLiteral("DockFolderID");
const QString stampKey = QStringLiteral("NestletSourceStamp");

QByteArray binary(const QVariant &value)
{
    return serializePropertyList(value, PropertyListFormat::Binary);
}

QByteArray dictWithID(const QByteArray &value)
{
    return xml("<dict><key>Other</key><string>x</string><key>DockFolderID</key>" + value
               + "</dict>");
}

void setModified(const FileURL &url, qint64 seconds, qint64 nanoseconds)
{
    const timespec time{.tv_sec = seconds, .tv_nsec = nanoseconds};
    const std::array times{time, time};
    QCOMPARE(::utimensat(AT_FDCWD, url.path().toUtf8().constData(), times.data(), 0), 0);
}

} // namespace

class InfoPlistTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void lowersTheFoldersIDIntoTheBundleIdentifier();
    void readsTheBundleIdentifier();
    void readsTheFolderID_data();
    void readsTheFolderID();
    void readsNoFolderIDWhereThereIsNoFile();
    void stampsTheTemplatesBuild_data();
    void stampsTheTemplatesBuild();
    void stampsAnUnknownVersion_data();
    void stampsAnUnknownVersion();
    void stampsTheExecutableTheInfoPlistNames();
    void stampsTheBundlesDateWithoutAnExecutable();
    void stampsZeroWithoutAnyDate();
    void hasNoStampForAnUnreadableTemplate_data();
    void hasNoStampForAnUnreadableTemplate();
    void changesTheStampWithTheExecutable();
    void writesTheSixKeys();
    void leavesEveryOtherKeyAsItIs();
    void readsBinaryAndWritesXML();
    void isByteIdenticalOnRepetition();
    void keepsTheNameAsItIs_data();
    void keepsTheNameAsItIs();
    void leavesAnOldStampWhenTheTemplateHasNone();
    void replacesTheFileAndNeverWritesIntoIt();
    void refusesAnInfoPlistThatIsNoDictionary_data();
    void refusesAnInfoPlistThatIsNoDictionary();
    void passesOnWhyAnInfoPlistCannotBeRead();
    void passesOnWhyAnInfoPlistCannotBeParsed_data();
    void passesOnWhyAnInfoPlistCannotBeParsed();
    void passesOnWhyAnInfoPlistCannotBeWritten();

private:
    [[nodiscard]] FileURL app(const QString &name) const
    {
        return m_directories->at(u'/' + name + QStringLiteral(".app"));
    }
    // A template and its fresh copy, and the copy rewritten for a folder of that name.
    QVariantMap rewritten(const QString &folderName);

    PosixFileSystem m_files;
    std::unique_ptr<FakeDirectories> m_directories;
    FileURL m_template;
    FileURL m_proxy;
};

void InfoPlistTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_directories = std::make_unique<FakeDirectories>();
    m_template = app(QStringLiteral("Template"));
    m_proxy = app(QStringLiteral("Proxy"));
}

QVariantMap InfoPlistTest::rewritten(const QString &folderName)
{
    makeTemplateApp(m_template, m_files);
    m_files.copy(m_template, m_proxy);
    rewriteInfoPlist(m_proxy, m_template, {.id = folderID, .name = folderName}, m_files);
    return readInfoPlist(m_proxy, m_files);
}

void InfoPlistTest::lowersTheFoldersIDIntoTheBundleIdentifier()
{
    QCOMPARE(proxyBundleIdentifier(folderID),
             QStringLiteral("qx.Nestlet.folder.1a2b3c4d5e6f4a8b9cad0123456789ef"));
}

void InfoPlistTest::readsTheBundleIdentifier()
{
    QCOMPARE(bundleIdentifier(m_template, m_files), std::nullopt);
    makeTemplateApp(m_template, m_files);
    QCOMPARE(bundleIdentifier(m_template, m_files), QStringLiteral("qx.Nestlet"));
    writeInfoPlistBytes(m_template, xml("<dict><key>CFBundleIdentifier</key><true/></dict>"),
                        m_files);
    QCOMPARE(bundleIdentifier(m_template, m_files), std::nullopt);
}

void InfoPlistTest::readsTheFolderID_data()
{
    QTest::addColumn<QByteArray>("infoPlist");
    QTest::addColumn<bool>("isFound");
    const QByteArray text = folderIDText.toUtf8();
    const auto row = [](const char *what, const QByteArray &infoPlist, bool isFound) {
        QTest::newRow(what) << infoPlist << isFound;
    };
    const QVariantMap dictionary{{folderIDKey, folderIDText}};
    row("XML", dictWithID("<string>" + text + "</string>"), true);
    row("binary", binary(dictionary), true);
    row("lower case", dictWithID("<string>" + text.toLower() + "</string>"), true);
    row("in an escaped character", dictWithID("<string>&#x31;" + text.mid(1) + "</string>"), true);
    row("behind a comment that names it",
        xml("<dict><!-- <key>DockFolderID</key> --><key>DockFolderID</key><string>" + text
            + "</string></dict>"),
        true);
    row("no key", xml("<dict><key>Other</key><string>" + text + "</string></dict>"), false);
    row("the key of a nested dictionary",
        xml("<dict><key>A</key><dict><key>DockFolderID</key><string>" + text
            + "</string></dict></dict>"),
        false);
    row("in braces", dictWithID("<string>{" + text + "}</string>"), false);
    row("without hyphens", dictWithID("<string>" + QByteArray(text).replace('-', "") + "</string>"),
        false);
    row("with a blank", dictWithID("<string> " + text + "</string>"), false);
    row("not a UUID", dictWithID("<string>Work</string>"), false);
    row("an empty text", dictWithID("<string></string>"), false);
    row("an integer", dictWithID("<integer>1</integer>"), false);
    row("a list", dictWithID("<array><string>" + text + "</string></array>"), false);
    row("binary data", dictWithID("<data>" + text.toBase64() + "</data>"), false);
    row("a list at the root", xml("<array><string>" + text + "</string></array>"), false);
    row("a text at the root", xml("<string>" + text + "</string>"), false);
    row("an empty file", QByteArray(), false);
    row("no property list", "hello", false);
    row("XML that breaks off", dictWithID("<string>" + text + "</string>").chopped(20), false);
    row("binary that breaks off", binary(dictionary).chopped(9), false);
}

void InfoPlistTest::readsTheFolderID()
{
    QFETCH(QByteArray, infoPlist);
    QFETCH(bool, isFound);
    writeInfoPlistBytes(m_proxy, infoPlist, m_files);
    QCOMPARE(readFolderID(m_proxy, m_files), isFound ? std::optional(folderID) : std::nullopt);
}

void InfoPlistTest::readsNoFolderIDWhereThereIsNoFile()
{
    QCOMPARE(readFolderID(m_proxy, m_files), std::nullopt);
    m_files.createDirectories(m_proxy);
    QCOMPARE(readFolderID(m_proxy, m_files), std::nullopt);
    m_files.createDirectories(infoPlistURL(m_proxy));
    QCOMPARE(readFolderID(m_proxy, m_files), std::nullopt);
}

void InfoPlistTest::stampsTheTemplatesBuild_data()
{
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<qint64>("nanoseconds");
    QTest::addColumn<QString>("expected");
    const auto row
        = [](const char *what, qint64 seconds, qint64 nanoseconds, const char *expected) {
              QTest::newRow(what) << seconds << nanoseconds << QString::fromLatin1(expected);
          };
    row("a fraction", 1712345678, 250'000'000, "412-1712345678.25");
    row("a whole second", 1712345678, 0, "412-1712345678.0");
    row("as many digits as tell it apart", 1712345678, 123'456'789, "412-1712345678.1234567");
    row("the beginning of 1970", 0, 0, "412-0.0");
    row("a nanosecond later", 0, 1, "412-0.000000001");
    row("before 1970", -2, 500'000'000, "412--1.5");
    row("the year 2100", 4102444800, 0, "412-4102444800.0");
}

void InfoPlistTest::stampsTheTemplatesBuild()
{
    QFETCH(qint64, seconds);
    QFETCH(qint64, nanoseconds);
    QFETCH(QString, expected);
    makeTemplateApp(m_template, m_files);
    setModified(m_template.appendingFile(QStringLiteral("Contents/MacOS/Nestlet")), seconds,
                nanoseconds);
    QCOMPARE(sourceStamp(m_template, m_files), expected);
}

void InfoPlistTest::stampsAnUnknownVersion_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::newRow("no version") << QByteArray();
    QTest::newRow("a version that is a number")
        << QByteArray("<key>CFBundleVersion</key><integer>412</integer>");
    QTest::newRow("an executable that is no text")
        << QByteArray("<key>CFBundleExecutable</key><true/>");
}

void InfoPlistTest::stampsAnUnknownVersion()
{
    QFETCH(QByteArray, entry);
    makeTemplateApp(m_template, m_files);
    setModified(m_template.appendingFile(QStringLiteral("Contents/MacOS/Nestlet")), 5, 0);
    writeInfoPlistBytes(m_template, xml("<dict>" + entry + "</dict>"), m_files);
    QCOMPARE(sourceStamp(m_template, m_files), QStringLiteral("unknown-5.0"));
}

void InfoPlistTest::stampsTheExecutableTheInfoPlistNames()
{
    makeTemplateApp(m_template, m_files);
    const FileURL other = m_template.appendingFile(QStringLiteral("Contents/MacOS/Ö ther"));
    writeFile(other, "x", m_files);
    setModified(other, 77, 500'000'000);
    writeInfoPlist(m_template,
                   {{QStringLiteral("CFBundleVersion"), QStringLiteral("1.2 β")},
                    {QStringLiteral("CFBundleExecutable"), QStringLiteral("Ö ther")}},
                   m_files);
    QCOMPARE(sourceStamp(m_template, m_files), QStringLiteral("1.2 β-77.5"));
}

void InfoPlistTest::stampsTheBundlesDateWithoutAnExecutable()
{
    makeTemplateApp(m_template, m_files);
    m_files.remove(m_template.appendingFile(QStringLiteral("Contents/MacOS/Nestlet")));
    setModified(m_template, 1234, 0);
    QCOMPARE(sourceStamp(m_template, m_files), QStringLiteral("412-1234.0"));
}

void InfoPlistTest::stampsZeroWithoutAnyDate()
{
    makeTemplateApp(m_template, m_files);
    FakeFileSystem files;
    files.onCall = [this](const FakeFileSystem::Call &call) {
        if (call.operation == FakeFileSystem::Operation::Identity && m_files.exists(m_template))
            m_files.remove(m_template); // gone while we look
    };
    QCOMPARE(sourceStamp(m_template, files), QStringLiteral("412-0.0"));
}

void InfoPlistTest::hasNoStampForAnUnreadableTemplate_data()
{
    QTest::addColumn<QByteArray>("infoPlist");
    QTest::newRow("not a property list") << QByteArray("hello");
    QTest::newRow("not a dictionary") << xml("<array/>");
    QTest::newRow("empty") << QByteArray();
}

void InfoPlistTest::hasNoStampForAnUnreadableTemplate()
{
    QFETCH(QByteArray, infoPlist);
    QCOMPARE(sourceStamp(m_template, m_files), std::nullopt);
    makeTemplateApp(m_template, m_files);
    writeInfoPlistBytes(m_template, infoPlist, m_files);
    QCOMPARE(sourceStamp(m_template, m_files), std::nullopt);
}

void InfoPlistTest::changesTheStampWithTheExecutable()
{
    makeTemplateApp(m_template, m_files);
    const FileURL executable = m_template.appendingFile(QStringLiteral("Contents/MacOS/Nestlet"));
    setModified(executable, 100, 0);
    const auto before = sourceStamp(m_template, m_files);
    setModified(executable, 100, 1000);
    QVERIFY(before != sourceStamp(m_template, m_files));
}

void InfoPlistTest::writesTheSixKeys()
{
    const QVariantMap info = rewritten(QStringLiteral("Work"));
    QCOMPARE(info.value(QStringLiteral("CFBundleDisplayName")), QVariant(QStringLiteral("Work")));
    QCOMPARE(info.value(QStringLiteral("CFBundleName")), QVariant(QStringLiteral("Work")));
    QCOMPARE(info.value(QStringLiteral("CFBundleIdentifier")),
             QVariant(proxyBundleIdentifier(folderID)));
    QCOMPARE(info.value(folderIDKey), QVariant(folderIDText));
    QCOMPARE(info.value(stampKey), QVariant(*sourceStamp(m_template, m_files)));
    QCOMPARE(info.value(QStringLiteral("LSUIElement")), QVariant(false));
}

void InfoPlistTest::leavesEveryOtherKeyAsItIs()
{
    QVariantMap info = rewritten(QStringLiteral("Work"));
    QVariantMap original = readInfoPlist(m_template, m_files);
    for (const char *key : {"CFBundleDisplayName", "CFBundleName", "CFBundleIdentifier",
                            "DockFolderID", "NestletSourceStamp", "LSUIElement"}) {
        QVERIFY(info.remove(QString::fromLatin1(key)) == 1);
        original.remove(QString::fromLatin1(key));
    }
    QVERIFY(original.size() >= 9);
    QCOMPARE(info, original);
}

void InfoPlistTest::readsBinaryAndWritesXML()
{
    makeTemplateApp(m_template, m_files);
    const QVariantMap info = readInfoPlist(m_template, m_files);
    rewriteInfoPlist(m_template, m_template, {.id = folderID, .name = QStringLiteral("A")},
                     m_files);
    const QByteArray fromXML = m_files.read(infoPlistURL(m_template));

    writeInfoPlistBytes(m_template, binary(info), m_files);
    rewriteInfoPlist(m_template, m_template, {.id = folderID, .name = QStringLiteral("A")},
                     m_files);
    QVERIFY(fromXML.startsWith("<?xml version=\"1.0\""));
    QCOMPARE(m_files.read(infoPlistURL(m_template)), fromXML);
}

void InfoPlistTest::isByteIdenticalOnRepetition()
{
    (void)rewritten(QStringLiteral("Work"));
    const QByteArray first = m_files.read(infoPlistURL(m_proxy));
    m_files.remove(m_proxy);
    m_files.remove(m_template);
    const FileURL executable = m_template.appendingFile(QStringLiteral("Contents/MacOS/Nestlet"));
    makeTemplateApp(m_template, m_files);
    setModified(executable, 9, 0);
    QVERIFY(m_files.read(infoPlistURL(m_template)) != first);

    m_files.copy(m_template, m_proxy);
    const DockFolder folder{.id = folderID, .name = QStringLiteral("Work")};
    rewriteInfoPlist(m_proxy, m_template, folder, m_files);
    const QByteArray second = m_files.read(infoPlistURL(m_proxy));
    m_files.remove(m_proxy);
    m_files.copy(m_template, m_proxy);
    rewriteInfoPlist(m_proxy, m_template, folder, m_files);
    QCOMPARE(m_files.read(infoPlistURL(m_proxy)), second);
    rewriteInfoPlist(m_proxy, m_template, folder, m_files);
    QCOMPARE(m_files.read(infoPlistURL(m_proxy)), second);
}

void InfoPlistTest::keepsTheNameAsItIs_data()
{
    QTest::addColumn<QString>("name");
    for (const char16_t *name :
         {u"a/b:c", u"", u"  blanks  ", u"<dict> & \"quotes\" ]]>", u"🚀 Работа", u"two\nlines",
          u"e\u0301 and é", u"..", u"%@ %1", u"a\tb"}) {
        const QString text = QString::fromUtf16(name);
        QTest::newRow(qPrintable(text.isEmpty() ? QStringLiteral("empty") : text)) << text;
    }
    QTest::newRow("300 characters") << QString(300, u'ж');
}

void InfoPlistTest::keepsTheNameAsItIs()
{
    QFETCH(QString, name);
    const QVariantMap info = rewritten(name);
    QCOMPARE(info.value(QStringLiteral("CFBundleDisplayName")), QVariant(name));
    QCOMPARE(info.value(QStringLiteral("CFBundleName")), QVariant(name));
}

void InfoPlistTest::leavesAnOldStampWhenTheTemplateHasNone()
{
    writeInfoPlist(m_proxy, {{stampKey, QStringLiteral("old")}}, m_files);
    const DockFolder folder{.id = folderID, .name = QStringLiteral("Work")};
    rewriteInfoPlist(m_proxy, m_template, folder, m_files);
    QCOMPARE(readInfoPlist(m_proxy, m_files).value(stampKey), QVariant(QStringLiteral("old")));

    writeInfoPlist(m_proxy, {}, m_files);
    rewriteInfoPlist(m_proxy, m_template, folder, m_files);
    QVERIFY(!readInfoPlist(m_proxy, m_files).contains(stampKey));
}

void InfoPlistTest::replacesTheFileAndNeverWritesIntoIt()
{
    makeTemplateApp(m_template, m_files);
    m_files.copy(m_template, m_proxy);
    const FileURL kept = FileURL::file(m_directories->root.filePath(QStringLiteral("kept.plist")));
    std::filesystem::create_hard_link(infoPlistURL(m_proxy).path().toStdString(),
                                      kept.path().toStdString());
    rewriteInfoPlist(m_proxy, m_template, {.id = folderID, .name = QStringLiteral("Work")},
                     m_files);
    QCOMPARE(m_files.read(kept), m_files.read(infoPlistURL(m_template)));
    QCOMPARE(m_files.contents(m_proxy.appendingDirectory(QStringLiteral("Contents"))).size(),
             m_files.contents(m_template.appendingDirectory(QStringLiteral("Contents"))).size());
}

void InfoPlistTest::refusesAnInfoPlistThatIsNoDictionary_data()
{
    QTest::addColumn<QByteArray>("infoPlist");
    QTest::newRow("a list") << xml("<array/>");
    QTest::newRow("a text") << xml("<string>x</string>");
    QTest::newRow("a binary list") << binary(QVariantList{true});
}

void InfoPlistTest::refusesAnInfoPlistThatIsNoDictionary()
{
    QFETCH(QByteArray, infoPlist);
    writeInfoPlistBytes(m_proxy, infoPlist, m_files);
    try {
        rewriteInfoPlist(m_proxy, m_template, {.id = folderID}, m_files);
        QFAIL("was accepted");
    } catch (const CompanionError &error) {
        QCOMPARE(error.kind(), CompanionError::Kind::invalidInfoPlist);
        QCOMPARE(error.text(), m_proxy.path() + QStringLiteral("/Contents/Info.plist"));
    }
    QCOMPARE(m_files.read(infoPlistURL(m_proxy)), infoPlist);
}

void InfoPlistTest::passesOnWhyAnInfoPlistCannotBeRead()
{
    QVERIFY_THROWS_EXCEPTION(PlatformError,
                             rewriteInfoPlist(m_proxy, m_template, {.id = folderID}, m_files));
}

void InfoPlistTest::passesOnWhyAnInfoPlistCannotBeParsed_data()
{
    QTest::addColumn<QByteArray>("infoPlist");
    QTest::newRow("no property list") << QByteArray("hello");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("cut off") << xml("<dict><key>CFBundleName</key>").chopped(20);
    QTest::newRow("cut off, binary") << binary(QVariantMap()).chopped(4);
}

void InfoPlistTest::passesOnWhyAnInfoPlistCannotBeParsed()
{
    QFETCH(QByteArray, infoPlist);
    writeInfoPlistBytes(m_proxy, infoPlist, m_files);
    try {
        rewriteInfoPlist(m_proxy, m_template, {.id = folderID}, m_files);
        QFAIL("was accepted");
    } catch (const PlatformError &error) {
        QVERIFY2(error.description().contains(infoPlistURL(m_proxy).path()),
                 qPrintable(error.description()));
    }
    QCOMPARE(m_files.read(infoPlistURL(m_proxy)), infoPlist);
}

void InfoPlistTest::passesOnWhyAnInfoPlistCannotBeWritten()
{
    makeTemplateApp(m_template, m_files);
    const QByteArray before = m_files.read(infoPlistURL(m_template));
    FakeFileSystem files;
    files.fail(FakeFileSystem::Operation::Write, {}, ENOSPC);
    QVERIFY_THROWS_EXCEPTION(PlatformError,
                             rewriteInfoPlist(m_template, m_template, {.id = folderID}, files));
    QCOMPARE(m_files.read(infoPlistURL(m_template)), before);
}

QTEST_GUILESS_MAIN(InfoPlistTest)
#include "tst_infoplist.moc"
