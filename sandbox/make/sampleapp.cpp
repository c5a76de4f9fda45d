#include "sandbox/make/sampleapp.h"

#include <QFileInfo>

namespace {

SampleApp app(const QString &path, QLatin1StringView identifier, QRgb top, QRgb bottom,
              QLatin1StringView symbol)
{
    return {.path = path,
            .identifier = QLatin1StringView("sample.") + identifier,
            .look = {.top = QColor(top), .bottom = QColor(bottom), .symbol = symbol}};
}

QList<SampleApp> everyApp()
{
    QList<SampleApp> apps{
        app(QStringLiteral("Applications/Almanac.app"), QLatin1StringView("almanac"), 0xFF7A59,
            0xD7263D, QLatin1StringView("book.fill")),
        app(QStringLiteral("Applications/alpha.app"), QLatin1StringView("alpha"), 0x5AC8FA,
            0x0A6CFF, QLatin1StringView("star.fill")),
        app(QStringLiteral("Applications/Beta.app"), QLatin1StringView("beta"), 0xB388FF, 0x5E35B1,
            QLatin1StringView("leaf.fill")),
        app(QStringLiteral("Applications/Über Notes.app"), QLatin1StringView("uebernotes"),
            0xFFD54F, 0xF59E0B, QLatin1StringView("pencil")),
        app(QStringLiteral("Applications/Éclair.app"), QLatin1StringView("eclair"), 0xF8BBD0,
            0xC2185B, QLatin1StringView("bolt.fill")),
        app(QStringLiteral("Applications/e\u0301cole.app"), QLatin1StringView("ecole"), 0x81C784,
            0x1B7F3B, QLatin1StringView("globe")),
        app(QStringLiteral("Applications/Zebra.app"), QLatin1StringView("zebra"), 0x9AA4B2,
            0x3A4250, QLatin1StringView("water.waves")),
        app(QStringLiteral("Applications/10 Timer.app"), QLatin1StringView("timer"), 0xFFB74D,
            0xE65100, QLatin1StringView("clock.fill")),
        app(QStringLiteral("Applications/2 Do.app"), QLatin1StringView("todo"), 0x4DD0A5, 0x00806A,
            QLatin1StringView("checkmark.circle.fill")),
        app(QStringLiteral("Applications/Drawing.app"), QLatin1StringView("drawing"), 0xF48FB1,
            0xAD1457, QLatin1StringView("photo.fill")),
        app(QStringLiteral("Applications/draw tools.app"), QLatin1StringView("drawtools"), 0xA1887F,
            0x5D4037, QLatin1StringView("pencil")),
        app(QStringLiteral("Applications/Lantern.app"), QLatin1StringView("lantern"), 0xFFE082,
            0xEF8E00, QLatin1StringView("bolt.fill")),
        app(QStringLiteral("Applications/Marble Run.app"), QLatin1StringView("marblerun"), 0x80DEEA,
            0x00838F, QLatin1StringView("gamecontroller.fill")),
        app(QStringLiteral("Applications/Pocket Atlas.app"), QLatin1StringView("pocketatlas"),
            0x64B5F6, 0x1E4FA8, QLatin1StringView("airplane")),
        app(QStringLiteral("Applications/Quill & Ink.app"), QLatin1StringView("quill"), 0x7986CB,
            0x283593, QLatin1StringView("doc.fill")),
        app(QStringLiteral("Applications/Tide Table.app"), QLatin1StringView("tidetable"), 0x4FC3F7,
            0x01579B, QLatin1StringView("drop.fill")),
        app(QStringLiteral("Applications/\U0001F388 Party.app"), QLatin1StringView("party"),
            0xFF8A80, 0xD81B60, QLatin1StringView("heart.fill")),
        app(QStringLiteral("Applications/The Extraordinarily Long Name of a Perfectly Ordinary"
                           " Application for Keeping Recipes, Lists and Other Things.app"),
            QLatin1StringView("longname"), 0xCE93D8, 0x7B1FA2, QLatin1StringView("cart.fill")),
        app(QStringLiteral("Applications/Foo.APP"), QLatin1StringView("foo"), 0xAED581, 0x558B2F,
            QLatin1StringView("terminal.fill")),
        app(QStringLiteral("Applications/.Hidden.app"), QLatin1StringView("hidden"), 0xB0BEC5,
            0x455A64, QLatin1StringView("moon.fill")),
        app(QStringLiteral("Applications/Half Note.app"), QLatin1StringView("halfnote"), 0xF06292,
            0x8E24AA, QLatin1StringView("music.note")),
        app(QStringLiteral("Applications/Utilities/Disk Weigher.app"),
            QLatin1StringView("diskweigher"), 0x90A4AE, 0x37474F,
            QLatin1StringView("chart.bar.fill")),
        app(QStringLiteral("Applications/Utilities/Font Drawer.app"),
            QLatin1StringView("fontdrawer"), 0xBCAAA4, 0x6D4C41, QLatin1StringView("folder.fill")),
        app(QStringLiteral("Applications/Utilities/Key Ring.app"), QLatin1StringView("keyring"),
            0xFFCC80, 0xB26A00, QLatin1StringView("person.fill")),
        app(QStringLiteral("Applications/Utilities/Signal Meter.app"),
            QLatin1StringView("signalmeter"), 0xA5D6A7, 0x2E7D32, QLatin1StringView("water.waves")),
        app(QStringLiteral("Applications/Studio/Easel.app"), QLatin1StringView("easel"), 0xFFAB91,
            0xBF360C, QLatin1StringView("photo.fill")),
        app(QStringLiteral("Applications/Studio/Tools/Deep Well.app"),
            QLatin1StringView("deepwell"), 0x80CBC4, 0x004D40, QLatin1StringView("drop.fill")),
        app(QStringLiteral("System/Applications/Sundial.app"), QLatin1StringView("sundial"),
            0xFFF176, 0xF9A825, QLatin1StringView("clock.fill")),
        app(QStringLiteral("System/Applications/Ledger.app"), QLatin1StringView("ledger"), 0x8BC6A2,
            0x22633C, QLatin1StringView("briefcase.fill")),
        app(QStringLiteral("System/Applications/Postcard.app"), QLatin1StringView("postcard"),
            0x90CAF9, 0x1565C0, QLatin1StringView("airplane")),
        app(QStringLiteral("System/Applications/Workbench.app"), QLatin1StringView("workbench"),
            0xB0B7C3, 0x4A5568, QLatin1StringView("gear")),
        app(QStringLiteral("System/Applications/Utilities/Echo Chamber.app"),
            QLatin1StringView("echochamber"), 0x616161, 0x1C1C1E,
            QLatin1StringView("terminal.fill")),
        app(QStringLiteral("Users/me/Applications/Homegrown.app"), QLatin1StringView("homegrown"),
            0xC5E1A5, 0x33691E, QLatin1StringView("house.fill")),
        app(QStringLiteral("Users/me/Applications/Ångström.app"), QLatin1StringView("angstrom"),
            0xB39DDB, 0x4527A0, QLatin1StringView("cloud.fill")),
        app(QStringLiteral("Users/me/Applications/Zebra.app"), QLatin1StringView("zebra.mine"),
            0xCFD8DC, 0x546E7A, QLatin1StringView("water.waves")),
    };
    for (qsizetype i = 0; i < apps.size(); ++i)
        apps[i].hasBinaryInfo = i % 3 == 1;
    return apps;
}

} // namespace

QString SampleApp::name() const
{
    return QFileInfo(path).fileName().chopped(4);
}

const QList<SampleApp> &sampleApps()
{
    static const QList<SampleApp> apps = everyApp();
    return apps;
}
