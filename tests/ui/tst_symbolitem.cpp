#include "ui/symbolitem.h"
#include "ui/windowengine.h"

#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>

/// The item in a window, and Symbol.qml around it.
class SymbolItemTest final : public QObject {
    Q_OBJECT

public:
    SymbolItemTest() { qputenv("QT_QUICK_BACKEND", "software"); }

private Q_SLOTS:
    void init();
    void standsInAnEvenBoxOfItsSize();
    void drawsWhatItsNameSays();
    void unknownNamesShowAQuestionMark();
    void emptyNamesShowNothing();
    void followsEachChange();
    void theMiddleStaysWhateverTheItemsSize();
    void theWindowsSymbolHasTheThemesColor();

private:
    [[nodiscard]] QImage picture() { return m_window->grabWindow(); }

    std::optional<QQuickWindow> m_window{};
    SymbolItem *m_symbol = nullptr;
};

void SymbolItemTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_window.emplace();
    m_window->resize(40, 40);
    m_window->setColor(Qt::white);
    m_symbol = new SymbolItem(m_window->contentItem()); // the window's to delete
    m_symbol->setParent(&*m_window);
    m_symbol->setColor(Qt::black);
    m_symbol->setName(QStringLiteral("folder.fill"));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(&*m_window));
}

void SymbolItemTest::standsInAnEvenBoxOfItsSize()
{
    QCOMPARE(m_symbol->implicitWidth(), 16); // 13 points
    for (int size = 9; size <= 64; ++size) {
        m_symbol->setPointSize(size);
        QCOMPARE(m_symbol->implicitWidth(), m_symbol->implicitHeight());
        QCOMPARE(std::remainder(m_symbol->implicitWidth(), 2), 0);
        QVERIFY(std::abs(m_symbol->implicitWidth() - 1.3 * size) <= 1);
    }
}

void SymbolItemTest::drawsWhatItsNameSays()
{
    const QImage folder = picture();
    QCOMPARE(folder.pixelColor(8, 10), QColor(Qt::black));
    QCOMPARE(folder.pixelColor(30, 30), QColor(Qt::white));
    m_symbol->setName(QStringLiteral("plus"));
    QVERIFY(picture() != folder);
}

void SymbolItemTest::unknownNamesShowAQuestionMark()
{
    m_symbol->setName(QStringLiteral("questionmark.square"));
    const QImage expected = picture();
    for (const char *name : {"from.a.newer.nestlet", "plus plus", "<b>plus</b>", "folder_fill"}) {
        m_symbol->setName(QLatin1StringView(name));
        QCOMPARE(picture(), expected);
    }
}

void SymbolItemTest::emptyNamesShowNothing()
{
    m_symbol->setName({});
    QImage empty = picture();
    empty.fill(Qt::white);
    QCOMPARE(picture(), empty);
    m_symbol->setName(QStringLiteral("plus"));
    QVERIFY(picture() != empty);
}

void SymbolItemTest::followsEachChange()
{
    m_symbol->setName(QStringLiteral("xmark.circle.fill"));
    QList<QImage> pictures{picture()};
    const auto changed = [&] {
        pictures.append(picture());
        return pictures.last() != pictures.at(pictures.size() - 2);
    };
    m_symbol->setColor(Qt::red);
    QVERIFY(changed());
    m_symbol->setSecondaryColor(Qt::gray);
    QVERIFY(changed());
    m_symbol->setWeight(QFont::Bold);
    QVERIFY(changed());
    m_symbol->setPointSize(20);
    QVERIFY(changed());
    m_symbol->setSecondaryColor({});
    QVERIFY(changed());
}

void SymbolItemTest::theMiddleStaysWhateverTheItemsSize()
{
    const auto shownInMiddleOf = [&](const QSizeF &size) {
        m_symbol->setSize(size);
        m_symbol->setPosition(QPointF(20 - size.width() / 2, 20 - size.height() / 2));
        return picture();
    };
    const QImage expected = shownInMiddleOf(m_symbol->size());
    QCOMPARE(shownInMiddleOf(QSizeF(28, 28)), expected);
    QCOMPARE(shownInMiddleOf(QSizeF(40, 24)), expected);
    QCOMPARE(shownInMiddleOf(QSizeF(8, 8)), expected);
}

void SymbolItemTest::theWindowsSymbolHasTheThemesColor()
{
    QQmlEngine engine;
    addWindowTypes(engine);
    QQmlComponent component(&engine);
    component.setData("import QtQuick\n"
                      "import Nestlet.Companion\n"
                      "Item {\n"
                      "    readonly property color expected: Theme.primary\n"
                      "    property Symbol symbol: Symbol {\n"
                      "        name: \"plus\"; size: 17; weight: Font.DemiBold }\n"
                      "}",
                      QUrl());
    const std::unique_ptr<QObject> item(component.create());
    QVERIFY2(item, qPrintable(component.errorString()));
    auto *symbol = item->property("symbol").value<SymbolItem *>();
    QVERIFY(symbol);
    QCOMPARE(symbol->color(), item->property("expected").value<QColor>());
    QCOMPARE(symbol->pointSize(), 17);
    QCOMPARE(symbol->weight(), QFont::DemiBold);
    QVERIFY(!QAccessible::queryAccessibleInterface(symbol));
}

QTEST_MAIN(SymbolItemTest)
#include "tst_symbolitem.moc"
