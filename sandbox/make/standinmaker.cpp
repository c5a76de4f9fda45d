#include "sandbox/make/standinmaker.h"

#include "sandbox/codesign/signing.h"
#include "sandbox/common/docktile.h"
#include "sandbox/common/files.h"
#include "sandbox/make/bundlewriter.h"
#include "sandbox/make/sampleapp.h"

#include "model/nestlet.h"

#include <QFile>

#include <array>

namespace {

const QString nestletName = QStringLiteral("Nestlet");
const QString nestletApp = QStringLiteral("Applications/Nestlet.app");
const QString dockApp = QStringLiteral("System/Library/CoreServices/Dock.app");
const QString sampleProgram = QStringLiteral("sample-app");

const AppIconLook nestletLook{.top = QColor(0x7fd1ff),
                              .bottom = QColor(0x2b5fd9),
                              .symbol = QStringLiteral("square.grid.2x2")};

QString nestletIdentity()
{
    return QStringLiteral("Developer ID Application: Nestlet (%1)").arg(expectedTeamIdentifier);
}

QVariantMap nestletInfo()
{
    QVariantMap info = applicationInfo(nestletName, nestletBundleIdentifier, nestletName);
    info.insert(QStringLiteral("CFBundleShortVersionString"), QStringLiteral("3.2"));
    info.insert(QStringLiteral("CFBundleVersion"), QStringLiteral("412"));
    info.insert(QStringLiteral("LSUIElement"), true);
    return info;
}

struct Document {
    QStringView path;
    QByteArrayView text;
};
constexpr std::array documents{
    Document{u"Documents/Reading List.txt", "Slow Rivers\nThe Quiet Cartographer\nBread, Mostly\n"},
    Document{u"Documents/Budget.csv", "month,rent,food\nMay,820,310\nJune,820,295\n"},
    Document{u"Documents/Garden Plan/Beds.txt", "North: beans\nSouth: tomatoes\n"},
    Document{u"Documents/Résumé.txt", "Things done, in order.\n"},
    Document{u"Desktop/Note to Self.txt", "Water the plants.\n"},
    Document{u"Desktop/100% done #1.txt", "A name with characters that URLs escape.\n"},
};

} // namespace

StandInMaker::StandInMaker(const QString &root, const QString &finalRoot, const QString &parts)
    : m_root(root)
    , m_finalRoot(finalRoot)
    , m_parts(parts)
{
}

void StandInMaker::make() const
{
    writePrograms();
    writeSampleApps();
    writeHome();
    writeDockPreferences();
}

void StandInMaker::writePrograms() const
{
    writeTools();
    writeDock();
    writeNestlet();
}

void StandInMaker::writeTools() const
{
    for (const QString &tool : {QStringLiteral("codesign"), QStringLiteral("killall")})
        copyExecutable(part(tool), path(u"usr/bin/" + tool));
}

void StandInMaker::writeDock() const
{
    QVariantMap info = applicationInfo(QStringLiteral("Dock"), QStringLiteral("com.apple.dock"),
                                       QStringLiteral("Dock"));
    info.insert(QStringLiteral("LSUIElement"), true);
    writeApplication(path(dockApp), info, part(QStringLiteral("Dock")), {});
}

void StandInMaker::writeNestlet() const
{
    const QString bundle = path(nestletApp);
    const QString contents = bundle + u"/Contents/";
    const QString sample = part(sampleProgram);
    writeApplication(bundle, nestletInfo(), part(nestletName), nestletLook);
    writeFramework(contents + u"Frameworks/NestletKit.framework", QStringLiteral("qx.Nestlet.Kit"),
                   sample);
    writeApplication(contents + u"Helpers/Nestlet Helper.app",
                     applicationInfo(QStringLiteral("Nestlet Helper"),
                                     QStringLiteral("qx.Nestlet.Helper"),
                                     QStringLiteral("Nestlet Helper")),
                     sample, {});
    writeFile(contents + u"Resources/en.lproj/Localizable.strings",
              QByteArrayLiteral("\"Empty\" = \"Nothing in here yet\";\n"));
    writeFile(contents + u"_MASReceipt/receipt", QByteArrayLiteral("a receipt for Nestlet 3.2\n"));
    writeFile(contents + u"embedded.provisionprofile",
              QByteArrayLiteral("a provisioning profile for qx.Nestlet\n"));
    signCode(bundle, {.signer = signingIdentity(nestletIdentity()), .deep = true, .force = true});
}

void StandInMaker::writeSampleApps() const
{
    for (const SampleApp &app : sampleApps()) {
        writeApplication(path(app.path), applicationInfo(app.name(), app.identifier, app.name()),
                         part(sampleProgram), app.look,
                         app.hasBinaryInfo ? PropertyListFormat::Binary : PropertyListFormat::XML);
    }
}

void StandInMaker::writeHome() const
{
    const QString home = path(QStringLiteral("Users/me/"));
    for (const Document &document : documents)
        writeFile(home + document.path, document.text.toByteArray());
    for (const QStringView directory : {u"Library/Application Support", u"Library/Preferences"})
        makeDirectories(home + directory);
}

void StandInMaker::writeDockPreferences() const
{
    QVariantList tiles;
    for (const QString &name :
         {QStringLiteral("Almanac"), QStringLiteral("Über Notes"), QStringLiteral("Pocket Atlas"),
          QStringLiteral("Marble Run"), QStringLiteral("Quill & Ink")}) {
        const QString below = u"/Applications/" + name + u".app";
        if (const auto app = AppBundle::at(m_root + below))
            tiles.append(dockTileFor(*app, m_finalRoot + below));
    }
    const QVariantMap preferences{{QStringLiteral("autohide"), false},
                                  {QStringLiteral("orientation"), QStringLiteral("bottom")},
                                  {QStringLiteral("tilesize"), qint64{56}}};
    writeFile(
        path(QStringLiteral("Users/me/Library/Preferences/com.apple.dock.plist")),
        serializePropertyList(withPersistentApps(preferences, tiles), PropertyListFormat::Binary));
}
