#include "ui/systemappearance.h"
#include "ui/windowengine.h"

#include "tests/fakes/fakeappearance.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

namespace {

const QColor blue(0x00, 0x7A, 0xFF);
const QColor blueInTheDark(0x0A, 0x84, 0xFF);

} // namespace

/// The appearance, and the theme that follows it.
class SystemAppearanceTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void followsThePlatform();
    void sameSettingsAreNoChange();
    void withoutAPlatformTheDesktopDecides();
    void textsAreInTheFontThatThePlatformNames();
    void observesNoLongerThanItLives();
    void theThemeFollowsLive();
};

void SystemAppearanceTest::followsThePlatform()
{
    FakeAppearance fake;
    fake.current = {.isDark = true, .reducesMotion = true};
    const SystemAppearance appearance(&fake);
    QVERIFY(appearance.isDark());
    QVERIFY(appearance.reducesMotion());
    QCOMPARE(appearance.accent(), blueInTheDark);
    const QSignalSpy changes(&appearance, &SystemAppearance::changed);
    fake.change({});
    QCOMPARE(changes.count(), 1);
    QVERIFY(!appearance.isDark());
    QVERIFY(!appearance.reducesMotion());
    QCOMPARE(appearance.accent(), blue);
    fake.change({.accent = QColor(Qt::magenta)});
    QCOMPARE(changes.count(), 2);
    QCOMPARE(appearance.accent(), QColor(Qt::magenta));
}

void SystemAppearanceTest::sameSettingsAreNoChange()
{
    FakeAppearance fake;
    const SystemAppearance appearance(&fake);
    const QSignalSpy changes(&appearance, &SystemAppearance::changed);
    fake.change(fake.current);
    QCOMPARE(changes.count(), 0);
}

void SystemAppearanceTest::withoutAPlatformTheDesktopDecides()
{
    const QPalette before = QGuiApplication::palette();
    QGuiApplication::setPalette(QPalette(Qt::white));
    const SystemAppearance appearance(nullptr);
    QVERIFY(!appearance.isDark());
    QGuiApplication::setPalette(QPalette(Qt::black));
    QTRY_VERIFY(appearance.isDark());
    QVERIFY(!appearance.reducesMotion());
    QCOMPARE(appearance.accent(), blueInTheDark);
    QGuiApplication::setPalette(before);
}

void SystemAppearanceTest::textsAreInTheFontThatThePlatformNames()
{
    FakeAppearance fake;
    QCOMPARE(SystemAppearance(&fake).fontFamily(), QGuiApplication::font().family());
    fake.family = QStringLiteral("Some Family");
    QCOMPARE(SystemAppearance(&fake).fontFamily(), QStringLiteral("Some Family"));
    loadFonts(fake); // warns of nothing, though the family is not there
}

void SystemAppearanceTest::observesNoLongerThanItLives()
{
    FakeAppearance fake;
    std::make_unique<SystemAppearance>(&fake).reset();
    QVERIFY(!fake.changed);
}

void SystemAppearanceTest::theThemeFollowsLive()
{
    FakeAppearance fake;
    QQmlEngine engine;
    addWindowTypes(engine);
    setAppearance(engine, fake);
    QQmlComponent component(&engine);
    component.setData("import QtQuick\n"
                      "import Nestlet.Companion\n"
                      "QtObject {\n"
                      "    readonly property color text: Theme.primary\n"
                      "    readonly property color accent: Theme.accent\n"
                      "    readonly property int duration: Theme.changeDuration\n"
                      "}",
                      QUrl());
    const std::unique_ptr<QObject> theme(component.create());
    QVERIFY2(theme, qPrintable(component.errorString()));
    QCOMPARE(theme->property("accent").value<QColor>(), blue);
    QVERIFY(theme->property("text").value<QColor>().lightnessF() < 0.5F);
    QVERIFY(theme->property("duration").toInt() > 0);
    fake.change({.isDark = true, .accent = QColor(Qt::magenta), .reducesMotion = true});
    QCOMPARE(theme->property("accent").value<QColor>(), QColor(Qt::magenta));
    QVERIFY(theme->property("text").value<QColor>().lightnessF() > 0.5F);
    QCOMPARE(theme->property("duration").toInt(), 0);
}

QTEST_MAIN(SystemAppearanceTest)
#include "tst_systemappearance.moc"
