#include "model/base64bytes.h"

#include <QRegularExpression>
#include <QTest>

class Base64BytesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void areWhatTheyWereGiven();
    void areDecodedFromTheFile_data();
    void areDecodedFromTheFile();
    void keepTheFile();
    void letGoOfTheFile();
    void areEqualHoweverTheyAreHeld();
};

namespace {

// As a reader meets it: a string somewhere in a file.
Base64Bytes inFile(const QByteArray &string)
{
    const QByteArray file = R"({"picture":)" + string + '}';
    return Base64Bytes::inFile(file, QByteArrayView(file).sliced(11, string.size()));
}

} // namespace

void Base64BytesTest::areWhatTheyWereGiven()
{
    const QByteArray bytes("a picture");
    const Base64Bytes given(bytes);
    QCOMPARE(given.bytes(), bytes);
    QCOMPARE(given.bytes().constData(), bytes.constData()); // without a copy
    QVERIFY(!given.isEmpty());
    QVERIFY(Base64Bytes().isEmpty());
    QVERIFY(Base64Bytes(QByteArray()).isEmpty());
    QCOMPARE(Base64Bytes().bytes(), QByteArray());
}

void Base64BytesTest::areDecodedFromTheFile_data()
{
    QTest::addColumn<QByteArray>("string");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("plain") << QByteArray(R"("Zm9v")") << QByteArray("foo");
    QTest::newRow("escaped slash") << QByteArray(R"("\/\/8=")") << QByteArray("\xff\xff");
    QTest::newRow("escaped letter") << QByteArray(R"("\u005am9v")") << QByteArray("foo");
    QTest::newRow("nothing") << QByteArray(R"("")") << QByteArray();
}

void Base64BytesTest::areDecodedFromTheFile()
{
    QFETCH(QByteArray, string);
    QFETCH(QByteArray, bytes);
    const Base64Bytes held = inFile(string);
    QCOMPARE(held.bytes(), bytes);
    QCOMPARE(held.isEmpty(), bytes.isEmpty());
}

void Base64BytesTest::keepTheFile()
{
    const auto held = std::make_unique<Base64Bytes>(inFile(R"("Zm9v")"));
    const Base64Bytes copy = *held;
    QVERIFY(copy.isSharedWith(*held));
    QCOMPARE(copy.bytes(), QByteArray("foo"));
}

void Base64BytesTest::letGoOfTheFile()
{
    QByteArray file = R"("Zm9v")";
    const char *const memory = file.constData();
    Base64Bytes held = Base64Bytes::inFile(file, file);
    held.detach();
    QCOMPARE(held.bytes(), QByteArray("foo"));
    file.data()[1] = 'x'; // copies what is shared
    QCOMPARE(file.constData(), memory);
}

void Base64BytesTest::areEqualHoweverTheyAreHeld()
{
    const Base64Bytes plain = inFile(R"("//8=")");
    QCOMPARE(plain, inFile(R"("//8=")"));
    QCOMPARE(plain, inFile(R"("\/\/8=")"));
    QCOMPARE(plain, inFile(R"("//9=")")); // whose last bits count for nothing
    QCOMPARE(plain, Base64Bytes(QByteArray("\xff\xff")));
    QVERIFY(plain != inFile(R"("//4=")"));
    QVERIFY(plain != Base64Bytes(QByteArray("\xff")));
    QVERIFY(!plain.isSharedWith(inFile(R"("//8=")")));
    QVERIFY(!plain.isSharedWith(Base64Bytes()));
}

QTEST_APPLESS_MAIN(Base64BytesTest)
#include "tst_base64bytes.moc"
