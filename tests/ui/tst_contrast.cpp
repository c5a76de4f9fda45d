#include "tests/fakes/fakeappearance.h"
#include "ui/contrast.h"
#include "ui/systemappearance.h"
#include "ui/windowengine.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QTest>

/// The contrast of colours, and of the theme's texts on the grounds that they are used on.
class ContrastTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void ratioIsThatOfTheStandard_data();
    void ratioIsThatOfTheStandard();
    void overMixesByTheOpacity();
    void whatIsReadableStaysAsItIs();
    void whatIsNotIsMadeReadable_data();
    void whatIsNotIsMadeReadable();
    void theThemesTextsAreReadable_data();
    void theThemesTextsAreReadable();
    void fadingTakesAShareOfTheOpacity();
};

namespace {

/// The theme, in an appearance.
class ThemeReader {
public:
    explicit ThemeReader(const Appearance::Settings &settings)
    {
        m_appearance.current = settings;
        setAppearance(m_engine, m_appearance);
        addWindowTypes(m_engine);
        m_component.setData("import QtQml\nimport Nestlet.Companion\nQtObject {}", {});
        m_object.reset(m_component.create());
    }
    [[nodiscard]] QVariant value(const QString &expression) const
    {
        return QQmlExpression(qmlContext(m_object.get()), m_object.get(), expression).evaluate();
    }

private:
    FakeAppearance m_appearance;
    QQmlEngine m_engine;
    QQmlComponent m_component{&m_engine};
    std::unique_ptr<QObject> m_object;
};

} // namespace

void ContrastTest::ratioIsThatOfTheStandard_data()
{
    QTest::addColumn<QColor>("first");
    QTest::addColumn<QColor>("second");
    QTest::addColumn<double>("expected");
    QTest::newRow("black on white") << QColor(Qt::black) << QColor(Qt::white) << 21.0;
    QTest::newRow("white on black") << QColor(Qt::white) << QColor(Qt::black) << 21.0;
    QTest::newRow("the same") << QColor(0x12, 0x34, 0x56) << QColor(0x12, 0x34, 0x56) << 1.0;
    QTest::newRow("grey on white") << QColor(0x77, 0x77, 0x77) << QColor(Qt::white) << 4.48;
    QTest::newRow("red on white") << QColor(Qt::red) << QColor(Qt::white) << 4.0;
    QTest::newRow("blue on white") << QColor(Qt::blue) << QColor(Qt::white) << 8.59;
}

void ContrastTest::ratioIsThatOfTheStandard()
{
    QFETCH(QColor, first);
    QFETCH(QColor, second);
    QFETCH(double, expected);
    QVERIFY2(std::abs(Contrast::ratio(first, second) - expected) < 0.005,
             qPrintable(QString::number(Contrast::ratio(first, second))));
}

void ContrastTest::overMixesByTheOpacity()
{
    QCOMPARE(Contrast::over(QColor(0, 0, 0, 0), QColor(10, 20, 30)).rgb(), qRgb(10, 20, 30));
    QCOMPARE(Contrast::over(QColor(1, 2, 3), QColor(10, 20, 30)).rgb(), qRgb(1, 2, 3));
    QCOMPARE(Contrast::over(QColor(255, 255, 255, 51), QColor(0, 100, 200)).rgb(),
             qRgb(51, 131, 211));
}

void ContrastTest::whatIsReadableStaysAsItIs()
{
    QCOMPARE(Contrast::readable(QColor(0, 0, 0x99), Qt::white), QColor(0, 0, 0x99));
    QCOMPARE(Contrast::readable(QColor(Qt::yellow), Qt::black), QColor(Qt::yellow));
}

void ContrastTest::whatIsNotIsMadeReadable_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QColor>("ground");
    QTest::newRow("yellow on white") << QColor(Qt::yellow) << QColor(Qt::white);
    QTest::newRow("white on white") << QColor(Qt::white) << QColor(Qt::white);
    QTest::newRow("black on black") << QColor(Qt::black) << QColor(Qt::black);
    QTest::newRow("blue on dark grey") << QColor(0x0A, 0x84, 0xFF) << QColor(0x36, 0x36, 0x38);
    QTest::newRow("red on middle grey") << QColor(Qt::red) << QColor(0x76, 0x76, 0x76);
}

void ContrastTest::whatIsNotIsMadeReadable()
{
    QFETCH(QColor, color);
    QFETCH(QColor, ground);
    QVERIFY(Contrast::ratio(color, ground) < Contrast::forText);
    const double reached = Contrast::ratio(Contrast::readable(color, ground), ground);
    QVERIFY(reached >= Contrast::forText);
    QVERIFY2(reached < 5, qPrintable(QString::number(reached))); // no more than it takes
}

void ContrastTest::theThemesTextsAreReadable_data()
{
    QTest::addColumn<Appearance::Settings>("settings");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("ground");
    const QList<std::pair<const char *, const char *>> pairs{
        {"primary", "content"},
        {"primary", "sidebar"},
        {"secondary", "content"},
        {"secondary", "sidebar"},
        {"secondary", "sheet"},
        {"secondary", "selectedRow over sidebar"},
        {"secondary", "quaternary over content"},
        {"tertiaryText", "content"},
        {"blueInk", "sidebar"},
        {"blueInk", "selectedRow over sidebar"},
        {"accentInk", "sidebar"},
        {"accentInk", "selectedRow over sidebar"},
        {"accentText", "accentFill"},
        {"accentText", "redFill"},
        {"redInk", "content"},
        {"redInk", "sheet"},
        {"redInk", "menu"},
        {"destructiveInk", "destructiveControl over sheet"},
        {"destructiveInk", "hovered over destructiveControl over sheet"},
    };
    for (const bool isDark : {false, true}) {
        for (const auto &[text, ground] : pairs)
            QTest::addRow("%s on %s, %s", text, ground, isDark ? "dark" : "light")
                << Appearance::Settings{.isDark = isDark} << QString::fromLatin1(text)
                << QString::fromLatin1(ground);
        QTest::addRow("a yellow accent, %s", isDark ? "dark" : "light")
            << Appearance::Settings{.isDark = isDark, .accent = QColor(0xFF, 0xC7, 0x26)}
            << QStringLiteral("accentInk") << QStringLiteral("selectedRow over sidebar");
    }
}

void ContrastTest::theThemesTextsAreReadable()
{
    QFETCH(Appearance::Settings, settings);
    QFETCH(QString, text);
    QFETCH(QString, ground);
    const ThemeReader theme(settings);
    const auto color = [&](const QString &role) {
        return theme.value(QStringLiteral("Theme.") + role).value<QColor>();
    };
    QStringList layers = ground.split(QStringLiteral(" over "));
    QColor seen = color(layers.takeLast());
    QCOMPARE(seen.alpha(), 255);
    while (!layers.isEmpty())
        seen = Contrast::over(color(layers.takeLast()), seen);
    const double ratio = Contrast::ratio(Contrast::over(color(text), seen), seen);
    QVERIFY2(ratio >= Contrast::forText, qPrintable(QString::number(ratio)));
}

void ContrastTest::fadingTakesAShareOfTheOpacity()
{
    const ThemeReader theme({});
    const auto alpha = [&](const char *expression) {
        return theme.value(QLatin1StringView(expression)).value<QColor>().alphaF();
    };
    QVERIFY(std::abs(alpha("Theme.faded(Theme.secondary, 0.5)") - 0.28) < 0.001);
    QVERIFY(std::abs(alpha("Theme.faded(Theme.accent, 0.5)") - 0.5) < 0.001);
}

QTEST_MAIN(ContrastTest)
#include "tst_contrast.moc"
