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
    void reportsTheFolderThatItWasOnDropping();
    void reportsWhatWasDroppedThoughItIsGone();
    void reportsNothingToAReceiverThatIsGone();
    void isTargetedNoMoreOnceItIsTakenAway_data();
    void isTargetedNoMoreOnceItIsTakenAway();

private:
    static constexpr QPoint inside{50, 50};
    static constexpr QPoint outside{150, 150};

    std::unique_ptr<NotingReceiver> m_receiver;
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
    m_receiver = std::make_unique<NotingReceiver>();
    m_target->setReceiver(m_receiver.get());
    m_target->setProperty("folderID", QStringLiteral("first"));
}

void FileDropTargetTest::cleanup()
{
    m_window.reset();
}

void FileDropTargetTest::takesFilesAndLeavesThemWhereTheyAre()
{
    IncomingDrag drag(*m_window, "file:///tmp/a\r\nfile:///tmp/b\r\n");
    QVERIFY(drag.enter(inside));
    QCOMPARE(drag.drop(inside), Qt::CopyAction);
    QTRY_COMPARE(m_receiver->drops,
                 QStringList{QStringLiteral("first file:///tmp/a file:///tmp/b")});
}

void FileDropTargetTest::keepsTheTextOfEveryURL()
{
    const QByteArray text = "file:///no/such/e%CC%81%2c%20b/";
    IncomingDrag drag(*m_window, text);
    QVERIFY(drag.enter(inside));
    drag.drop(inside);
    QTRY_COMPARE(m_receiver->drops,
                 QStringList{QStringLiteral("first ") + QString::fromLatin1(text)});
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

// A list uses the area for another row before the files are read.
void FileDropTargetTest::reportsTheFolderThatItWasOnDropping()
{
    IncomingDrag drag(*m_window, "file:///tmp/a");
    QVERIFY(drag.enter(inside));
    drag.drop(inside);
    m_target->setProperty("folderID", QStringLiteral("second"));
    QTRY_COMPARE(m_receiver->drops, QStringList{QStringLiteral("first file:///tmp/a")});
}

void FileDropTargetTest::reportsWhatWasDroppedThoughItIsGone()
{
    IncomingDrag drag(*m_window, "file:///tmp/a");
    QVERIFY(drag.enter(inside));
    drag.drop(inside);
    delete m_target;
    QTRY_COMPARE(m_receiver->drops, QStringList{QStringLiteral("first file:///tmp/a")});
}

void FileDropTargetTest::reportsNothingToAReceiverThatIsGone()
{
    IncomingDrag drag(*m_window, "file:///tmp/a");
    QVERIFY(drag.enter(inside));
    drag.drop(inside);
    m_receiver.reset(); // a sanitizer would tell
    QCoreApplication::processEvents();
    QCOMPARE(m_target->receiver(), nullptr);
}

void FileDropTargetTest::isTargetedNoMoreOnceItIsTakenAway_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("hidden") << QByteArray("visible");
    QTest::newRow("disabled") << QByteArray("enabled");
}

void FileDropTargetTest::isTargetedNoMoreOnceItIsTakenAway()
{
    QFETCH(QByteArray, property);
    IncomingDrag drag(*m_window, "file:///tmp/a");
    QVERIFY(drag.enter(inside));
    m_target->setProperty(property.constData(), false);
    QVERIFY(!m_target->isTargeted());
    m_target->setProperty(property.constData(), true);
    QVERIFY(!m_target->isTargeted()); // where the drag is now is not known before it moves
    QVERIFY(drag.move(inside + QPoint(1, 1)));
    QVERIFY(m_target->isTargeted());
}

QTEST_MAIN(FileDropTargetTest)
#include "tst_filedroptarget.moc"
