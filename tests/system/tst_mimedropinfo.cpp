#include "system/mimedropinfo.h"

#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class MimeDropInfoTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void eachLineIsOneItemInTheirOrder();
    void skipsCommentsBlankLinesAndOtherAddresses();
    void takesBareLineFeeds();
    void textIsNoFile();
    void filesAreNoText();
    void webAddressesAloneAreNoFiles();
    void dataComeThroughTheEventLoop();
    void directoryGetsASlash();
    void fileAndLinkAndMissingOneGetNoSlash();
    void escapesStayAsTheyCame();
    void itemsOutliveTheDrag();
};

namespace {

constexpr QLatin1StringView uriListType{"text/uri-list"};

/// A list of URLs as another program drags it: the bytes reach the reader as they were written.
class ForeignMimeData final : public QMimeData {
public:
    explicit ForeignMimeData(const QByteArray &uriList)
        : m_uriList(uriList)
    {
    }
    bool hasFormat(const QString &type) const override { return type == uriListType; }
    QStringList formats() const override { return {uriListType}; }

protected:
    QVariant retrieveData(const QString &type, QMetaType) const override
    {
        return type == uriListType ? m_uriList : QVariant();
    }

private:
    QByteArray m_uriList;
};

/// The data of every item, in order.
QByteArrayList loadedData(const MimeDropInfo &info)
{
    QByteArrayList loaded;
    const auto providers = info.fileURLProviders();
    for (const auto &provider : providers)
        provider->loadFileURL([&](const auto &data) { loaded.append(data.value_or("nothing")); });
    [&] { QTRY_COMPARE(loaded.size(), providers.size()); }();
    return loaded;
}

QByteArrayList loadedFrom(const QByteArray &uriList)
{
    const ForeignMimeData data(uriList);
    return loadedData(MimeDropInfo(&data));
}

} // namespace

void MimeDropInfoTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
}

void MimeDropInfoTest::eachLineIsOneItemInTheirOrder()
{
    QCOMPARE(loadedFrom("file:///none/b\r\nfile:///none/a\r\nfile:///none/b\r\n"),
             (QByteArrayList{"file:///none/b", "file:///none/a", "file:///none/b"}));
}

void MimeDropInfoTest::skipsCommentsBlankLinesAndOtherAddresses()
{
    QCOMPARE(loadedFrom("# file:///none/no\r\n\r\nfile:///none/a\r\nhttps://a.example/\r\n"),
             QByteArrayList{"file:///none/a"});
}

void MimeDropInfoTest::takesBareLineFeeds()
{
    QCOMPARE(loadedFrom("file:///none/a\nFILE:///none/b"),
             (QByteArrayList{"file:///none/a", "FILE:///none/b"}));
}

void MimeDropInfoTest::textIsNoFile()
{
    QMimeData data;
    data.setText(u"file:///none/a"_s);
    const MimeDropInfo info(&data);
    QVERIFY(info.hasItems(DropContent::PlainText));
    QVERIFY(!info.hasItems(DropContent::FileURL));
    QVERIFY(info.fileURLProviders().isEmpty());
}

void MimeDropInfoTest::filesAreNoText()
{
    QMimeData data;
    data.setUrls({QUrl(u"file:///none/a"_s)});
    const MimeDropInfo info(&data);
    QVERIFY(info.hasItems(DropContent::FileURL));
    QVERIFY(!info.hasItems(DropContent::PlainText));
    QCOMPARE(loadedData(info), QByteArrayList{"file:///none/a"});
}

void MimeDropInfoTest::webAddressesAloneAreNoFiles()
{
    QMimeData data;
    data.setUrls({QUrl(u"https://a.example/"_s)});
    QVERIFY(!MimeDropInfo(&data).hasItems(DropContent::FileURL));
}

void MimeDropInfoTest::dataComeThroughTheEventLoop()
{
    const ForeignMimeData data("file:///none/a");
    bool isLoaded = false;
    const auto providers = MimeDropInfo(&data).fileURLProviders();
    providers.at(0)->loadFileURL([&](const auto &) { isLoaded = true; });
    QVERIFY(!isLoaded);
    QTRY_VERIFY(isLoaded);
}

void MimeDropInfoTest::directoryGetsASlash()
{
    const QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkdir(u"My Möwe.app"_s));
    const QByteArray text = FileURL::file(root.filePath(u"My Möwe.app"_s)).text().toUtf8();
    QCOMPARE(loadedFrom(text), QByteArrayList{text + '/'});
    QCOMPARE(loadedFrom(text + '/'), QByteArrayList{text + '/'});
}

void MimeDropInfoTest::fileAndLinkAndMissingOneGetNoSlash()
{
    const QTemporaryDir root;
    QVERIFY(QFile(root.filePath(u"file"_s)).open(QIODevice::WriteOnly));
    QVERIFY(QFile::link(root.path(), root.filePath(u"link"_s)));
    const QByteArray base = FileURL::directory(root.path()).text().toUtf8();
    QCOMPARE(loadedFrom(base + "file\n" + base + "link\n" + base + "missing"),
             (QByteArrayList{base + "file", base + "link", base + "missing"}));
}

void MimeDropInfoTest::escapesStayAsTheyCame()
{
    const QByteArray text = "file:///none/%6d%c3%b6we%20o%CC%88";
    QCOMPARE(loadedFrom(text), QByteArrayList{text});
}

void MimeDropInfoTest::itemsOutliveTheDrag()
{
    QList<std::shared_ptr<DropItemProvider>> providers;
    {
        const ForeignMimeData data("file:///none/a");
        providers = MimeDropInfo(&data).fileURLProviders();
    }
    QByteArray loaded;
    providers.at(0)->loadFileURL([&](const auto &data) { loaded = data.value_or("nothing"); });
    providers.clear();
    QTRY_COMPARE(loaded, "file:///none/a");
}

QTEST_GUILESS_MAIN(MimeDropInfoTest)
#include "tst_mimedropinfo.moc"
