#include "tests/ui/drags.h"
#include "ui/filedroptarget.h"

#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

class FileDropTargetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void takesFilesAndLeavesThemWhereTheyAre();
    void keepsTheTextOfEveryURL();
    void highlightsWhileADragHovers();
    void refusesWhatCarriesNoFiles_data();
    void refusesWhatCarriesNoFiles();
    void takesNothingWhileDisabled();
    void reportsNothingOnceItIsGone();

private:
    static constexpr QPoint inside{50, 50};
    static constexpr QPoint outside{150, 150};

    std::unique_ptr<QQuickWindow> m_window;
    FileDropTarget *m_target = nullptr;
};

void FileDropTargetTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(200, 200);
    m_target = new FileDropTarget(m_window->contentItem()); // owned by it
    m_target->setSize({100, 100});
}

void FileDropTargetTest::cleanup()
{
    m_window.reset();
}

void FileDropTargetTest::takesFilesAndLeavesThemWhereTheyAre()
{
    const QSignalSpy dropped(m_target, &FileDropTarget::dropped);
    IncomingDrag drag(*m_window, "file:///tmp/a\r\nfile:///tmp/b\r\n");
    QVERIFY(drag.enter(inside));
    QCOMPARE(drag.drop(inside), Qt::CopyAction);
    QTRY_COMPARE(dropped.count(), 1);
    QCOMPARE(dropped.first().first().toStringList(),
             (QStringList{QStringLiteral("file:///tmp/a"), QStringLiteral("file:///tmp/b")}));
}

void FileDropTargetTest::keepsTheTextOfEveryURL()
{
    const QSignalSpy dropped(m_target, &FileDropTarget::dropped);
    const QByteArray text = "file:///no/such/e%CC%81%2c%20b/";
    IncomingDrag drag(*m_window, text);
    QVERIFY(drag.enter(inside));
    drag.drop(inside);
    QTRY_COMPARE(dropped.count(), 1);
    QCOMPARE(dropped.first().first().toStringList(), QStringList{QString::fromLatin1(text)});
}

void FileDropTargetTest::highlightsWhileADragHovers()
{
    const QSignalSpy targeted(m_target, &FileDropTarget::isTargetedChanged);
    IncomingDrag drag(*m_window, "file:///tmp/a");
    QVERIFY(drag.enter(inside));
    QVERIFY(m_target->isTargeted());
    QVERIFY(drag.move(inside + QPoint(5, 5)));
    QVERIFY(!drag.move(outside));
    QVERIFY(!m_target->isTargeted());
    QVERIFY(drag.move(inside));
    QVERIFY(m_target->isTargeted());
    drag.leave();
    QVERIFY(!m_target->isTargeted());
    QVERIFY(drag.enter(inside));
    drag.drop(inside);
    QVERIFY(!m_target->isTargeted());
    QCOMPARE(targeted.count(), 6);
}

void FileDropTargetTest::refusesWhatCarriesNoFiles_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("format");
    QTest::newRow("a page of the web")
        << QByteArray("https://example.com/") << QStringLiteral("text/uri-list");
    QTest::newRow("text") << QByteArray("file:///tmp/a") << QStringLiteral("text/plain");
    QTest::newRow("no line at all") << QByteArray() << QStringLiteral("text/uri-list");
}

void FileDropTargetTest::refusesWhatCarriesNoFiles()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, format);
    IncomingDrag drag(*m_window, data, format);
    QVERIFY(!drag.enter(inside));
    QVERIFY(!drag.move(inside));
    QVERIFY(!m_target->isTargeted());
}

void FileDropTargetTest::takesNothingWhileDisabled()
{
    m_target->setEnabled(false);
    IncomingDrag drag(*m_window, "file:///tmp/a");
    QVERIFY(!drag.enter(inside));
    QVERIFY(!m_target->isTargeted());
}

void FileDropTargetTest::reportsNothingOnceItIsGone()
{
    int reports = 0;
    connect(m_target, &FileDropTarget::dropped, this, [&] { ++reports; });
    IncomingDrag drag(*m_window, "file:///tmp/a");
    QVERIFY(drag.enter(inside));
    drag.drop(inside);
    delete m_target; // its files are on their way
    QCoreApplication::processEvents();
    QCOMPARE(reports, 0);
}

QTEST_MAIN(FileDropTargetTest)
#include "tst_filedroptarget.moc"
