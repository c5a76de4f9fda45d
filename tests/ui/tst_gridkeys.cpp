#include "ui/gridkeys.h"

#include <QTest>

/// Where keys lead in a grid.
class GridKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void leadsToACell_data();
    void leadsToACell();
    void withoutPagesTheirKeysLeadNowhere();
    void inAnEmptyGridNoKeyLeadsAnywhere();
};

void GridKeysTest::leadsToACell_data()
{
    QTest::addColumn<int>("cell");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("isMirrored");
    QTest::addColumn<int>("target");
    const auto add = [](const char *name, int cell, Qt::Key key, bool isMirrored, int target) {
        QTest::newRow(name) << cell << key << isMirrored << target;
    };
    // Lines of three: 0-2, 3-5, 6-8, 9-10; two of them are a page.
    add("right", 0, Qt::Key_Right, false, 1);
    add("right over a line's end", 2, Qt::Key_Right, false, 3);
    add("right at the end", 10, Qt::Key_Right, false, 10);
    add("left", 4, Qt::Key_Left, false, 3);
    add("left at the beginning", 0, Qt::Key_Left, false, 0);
    add("down", 1, Qt::Key_Down, false, 4);
    add("down where the last line is shorter", 8, Qt::Key_Down, false, 10);
    add("down in the last line", 9, Qt::Key_Down, false, 9);
    add("up", 4, Qt::Key_Up, false, 1);
    add("up at the top", 2, Qt::Key_Up, false, 2);
    add("a page down", 1, Qt::Key_PageDown, false, 7);
    add("a page down where the last line is shorter", 5, Qt::Key_PageDown, false, 10);
    add("less than a page down", 6, Qt::Key_PageDown, false, 9);
    add("a page up", 10, Qt::Key_PageUp, false, 4);
    add("less than a page up", 5, Qt::Key_PageUp, false, 2);
    add("home", 7, Qt::Key_Home, false, 0);
    add("end", 7, Qt::Key_End, false, 10);
    add("right from right to left", 4, Qt::Key_Right, true, 3);
    add("left from right to left", 4, Qt::Key_Left, true, 5);
    add("left at the end from right to left", 10, Qt::Key_Left, true, 10);
    add("down from right to left", 1, Qt::Key_Down, true, 4);
    add("any other key", 7, Qt::Key_A, false, -1);
}

void GridKeysTest::leadsToACell()
{
    QFETCH(int, cell);
    QFETCH(Qt::Key, key);
    QFETCH(bool, isMirrored);
    QTEST(GridKeys::cellAfterKey(key, cell, 11, 3, 2, isMirrored), "target");
}

void GridKeysTest::withoutPagesTheirKeysLeadNowhere()
{
    QCOMPARE(GridKeys::cellAfterKey(Qt::Key_PageDown, 1, 11, 3, 0, false), -1);
    QCOMPARE(GridKeys::cellAfterKey(Qt::Key_PageUp, 9, 11, 3, 0, false), -1);
}

void GridKeysTest::inAnEmptyGridNoKeyLeadsAnywhere()
{
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End})
        QCOMPARE(GridKeys::cellAfterKey(key, -1, 0, 3, 2, false), -1);
}

QTEST_GUILESS_MAIN(GridKeysTest)
#include "tst_gridkeys.moc"
