#include "platform/portable/portableappearance.h"
#include "platform/posix/posixfilesystem.h"
#include "platform/propertylist.h"
#include "platform/qt/paletteappearance.h"
#include "tests/fakes/fakeappearance.h"

#include <QFile>
#include <QGuiApplication>
#include <QPalette>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString global = QStringLiteral(".GlobalPreferences");
const QVariantMap dark{{QStringLiteral("AppleInterfaceStyle"), QStringLiteral("Dark")}};

} // namespace

class PortableAppearanceTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void withoutFilesTheDesktopDecides();
    void theFileOverrulesTheDesktop_data();
    void theFileOverrulesTheDesktop();
    void namesTheAccent_data();
    void namesTheAccent();
    void motionIsReducedByEitherFile_data();
    void motionIsReducedByEitherFile();
    void damagedFilesSayNothing();
    void followsFilesHoweverTheyAreWritten();
    void tellsOfRealChangesOnly();
    void paletteOfADarkDesktop();

private:
    [[nodiscard]] FileURL file(const QString &domain) const
    {
        return m_preferences.appendingFile(domain + QStringLiteral(".plist"));
    }
    void store(const QString &domain, const QVariantMap &values) const
    {
        m_files.createDirectories(m_preferences);
        m_files.writeAtomically(file(domain),
                                serializePropertyList(values, PropertyListFormat::XML));
    }
    [[nodiscard]] std::unique_ptr<PortableAppearance> make(bool isDesktopDark = false)
    {
        auto desktop = std::make_unique<FakeAppearance>();
        desktop->current.isDark = isDesktopDark;
        m_desktop = desktop.get();
        return std::make_unique<PortableAppearance>(m_preferences, std::move(desktop));
    }

    const PosixFileSystem m_files{};
    std::optional<QTemporaryDir> m_directory{};
    FileURL m_preferences{};
    FakeAppearance *m_desktop = nullptr;
};

void PortableAppearanceTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_directory.emplace();
    m_preferences = FileURL::directory(m_directory->filePath(QStringLiteral("Preferences")));
}

void PortableAppearanceTest::withoutFilesTheDesktopDecides()
{
    const auto appearance = make();
    QCOMPARE(appearance->settings(), Appearance::Settings());
    int changes = 0;
    appearance->observe([&] { ++changes; });
    m_desktop->change({.isDark = true});
    QCOMPARE(appearance->settings(), (Appearance::Settings{.isDark = true}));
    QCOMPARE(changes, 1);
}

void PortableAppearanceTest::theFileOverrulesTheDesktop_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<bool>("isDark");
    QTest::newRow("dark") << QStringLiteral("Dark") << true;
    QTest::newRow("light") << QStringLiteral("Light") << false;
}

void PortableAppearanceTest::theFileOverrulesTheDesktop()
{
    QFETCH(QString, style);
    QFETCH(bool, isDark);
    store(global, {{QStringLiteral("AppleInterfaceStyle"), style}});
    const auto appearance = make(!isDark);
    QCOMPARE(appearance->settings().isDark, isDark);
    m_desktop->change({.isDark = !isDark});
    QCOMPARE(appearance->settings().isDark, isDark);
}

void PortableAppearanceTest::namesTheAccent_data()
{
    QTest::addColumn<QVariant>("number");
    QTest::addColumn<std::optional<QColor>>("light");
    QTest::addColumn<std::optional<QColor>>("inTheDark");
    const auto number = [](qint64 n) { return QVariant(n); };
    using Color = std::optional<QColor>;
    QTest::newRow("graphite") << number(-1) << Color("#8E8E93") << Color("#98989D");
    QTest::newRow("red") << number(0) << Color("#FF3B30") << Color("#FF453A");
    QTest::newRow("blue") << number(4) << Color("#007AFF") << Color("#0A84FF");
    QTest::newRow("pink") << number(6) << Color("#FF2D55") << Color("#FF375F");
    QTest::newRow("unknown") << number(7) << Color() << Color();
    QTest::newRow("no number") << QVariant(QStringLiteral("4")) << Color() << Color();
}

void PortableAppearanceTest::namesTheAccent()
{
    QFETCH(QVariant, number);
    QVariantMap values{{QStringLiteral("AppleAccentColor"), number}};
    store(global, values);
    using Color = std::optional<QColor>;
    QTEST(Color(make(false)->settings().accent), "light");
    QTEST(Color(make(true)->settings().accent), "inTheDark");
}

void PortableAppearanceTest::motionIsReducedByEitherFile_data()
{
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("key");
    QTest::newRow("universal access")
        << QStringLiteral("com.apple.universalaccess") << QStringLiteral("reduceMotion");
    QTest::newRow("accessibility")
        << QStringLiteral("com.apple.Accessibility") << QStringLiteral("ReduceMotionEnabled");
}

void PortableAppearanceTest::motionIsReducedByEitherFile()
{
    QFETCH(QString, domain);
    QFETCH(QString, key);
    store(domain, {{key, true}});
    QVERIFY(make()->settings().reducesMotion);
    store(domain, {{key, qint64{1}}});
    QVERIFY(make()->settings().reducesMotion);
    store(domain, {{key, false}});
    QVERIFY(!make()->settings().reducesMotion);
}

void PortableAppearanceTest::damagedFilesSayNothing()
{
    store(global, dark);
    m_files.writeAtomically(file(global), "<plist><dict><key>AppleInterfaceStyle</key>");
    QCOMPARE(make()->settings(), Appearance::Settings());
    m_files.writeAtomically(file(global), "<plist><array/></plist>");
    QCOMPARE(make()->settings(), Appearance::Settings());
}

void PortableAppearanceTest::followsFilesHoweverTheyAreWritten()
{
    const auto appearance = make();
    const auto isDark = [&] { return appearance->settings().isDark; };
    store(global, dark); // a new file
    QTRY_VERIFY(isDark());
    store(global, {}); // one in its place
    QTRY_VERIFY(!isDark());
    {
        QFile inPlace(file(global).path());
        QVERIFY(inPlace.open(QIODevice::WriteOnly | QIODevice::Truncate));
        inPlace.write(serializePropertyList(dark, PropertyListFormat::Binary));
    }
    QTRY_VERIFY(isDark());
    m_files.remove(file(global));
    QTRY_VERIFY(!isDark());
    store(QStringLiteral("com.apple.universalaccess"), {{QStringLiteral("reduceMotion"), true}});
    QTRY_VERIFY(appearance->settings().reducesMotion);
}

void PortableAppearanceTest::tellsOfRealChangesOnly()
{
    const auto appearance = make();
    int changes = 0;
    appearance->observe([&] { ++changes; });
    store(QStringLiteral("com.apple.dock"), {{QStringLiteral("tilesize"), qint64{48}}});
    store(global, {{QStringLiteral("AppleLocale"), QStringLiteral("en_GB")}});
    store(QStringLiteral("com.apple.universalaccess"), {{QStringLiteral("reduceMotion"), true}});
    QTRY_COMPARE(changes, 1);
    store(global, dark);
    QTRY_COMPARE(changes, 2);
}

void PortableAppearanceTest::paletteOfADarkDesktop()
{
    const QPalette before = QGuiApplication::palette();
    QGuiApplication::setPalette(QPalette(Qt::white));
    PaletteAppearance desktop;
    QVERIFY(!desktop.settings().isDark);
    int changes = 0;
    desktop.observe([&] { ++changes; });
    QGuiApplication::setPalette(QPalette(Qt::black));
    QTRY_COMPARE(changes, 1);
    QVERIFY(desktop.settings().isDark);
    QGuiApplication::setPalette(before);
}

QTEST_MAIN(PortableAppearanceTest)
#include "tst_portableappearance.moc"
