#include "store/movebyoffsets.h"

#include <QTest>

class MoveByOffsetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void movesAsAListDoes_data();
    void movesAsAListDoes();
};

void MoveByOffsetsTest::movesAsAListDoes_data()
{
    QTest::addColumn<QList<qsizetype>>("sources");
    QTest::addColumn<qsizetype>("destination");
    QTest::addColumn<QString>("expected"); // of "abcd"
    using Offsets = QList<qsizetype>;
    QTest::newRow("down, before what stood there") << Offsets{0} << qsizetype{2} << "bacd";
    QTest::newRow("to the end") << Offsets{0} << qsizetype{4} << "bcda";
    QTest::newRow("up") << Offsets{3} << qsizetype{1} << "adbc";
    QTest::newRow("onto itself") << Offsets{1} << qsizetype{1} << "abcd";
    QTest::newRow("just behind itself") << Offsets{1} << qsizetype{2} << "abcd";
    QTest::newRow("several keep their order") << Offsets{3, 0} << qsizetype{2} << "badc";
    QTest::newRow("behind the end counts as the end") << Offsets{0} << qsizetype{99} << "bcda";
    QTest::newRow("before the start counts as the start") << Offsets{2} << qsizetype{-1} << "cabd";
    QTest::newRow("offsets outside are ignored") << Offsets{-1, 7} << qsizetype{0} << "abcd";
}

void MoveByOffsetsTest::movesAsAListDoes()
{
    QFETCH(QList<qsizetype>, sources);
    QFETCH(qsizetype, destination);
    QFETCH(QString, expected);
    const QList<QChar> list{u'a', u'b', u'c', u'd'};
    QString moved;
    for (const QChar c :
         movedByOffsets(list, std::set(sources.begin(), sources.end()), destination))
        moved += c;
    QCOMPARE(moved, expected);
}

QTEST_APPLESS_MAIN(MoveByOffsetsTest)
#include "tst_storemovebyoffsets.moc"
