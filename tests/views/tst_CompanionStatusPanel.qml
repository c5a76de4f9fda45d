import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "CompanionStatusPanel"

    Component {
        id: view

        CompanionStatusPanel {
            width: 400
            isInstalled: false
            isLocked: false
        }
    }

    function states() {
        const locked = {
            isLocked: true,
            symbol: "lock.fill",
            title: "App Store Folder",
            explanation: "Read-only. Manage this folder in Nestlet directly."
        };
        return [
            Object.assign({tag: "locked", isInstalled: false}, locked),
            Object.assign({tag: "locked and installed", isInstalled: true}, locked),
            {
                tag: "installed",
                isLocked: false,
                isInstalled: true,
                symbol: "checkmark.circle.fill",
                title: "In Dock",
                explanation: "Running as its own Dock app."
            },
            {
                tag: "neither",
                isLocked: false,
                isInstalled: false,
                symbol: "circle",
                title: "Not in Dock",
                explanation: "Click \"Show in Dock\" to install."
            }
        ];
    }

    function test_tellsWhereTheFolderStands_data() {
        return states();
    }
    function test_tellsWhereTheFolderStands(data) {
        const panel = show(view, {isInstalled: data.isInstalled, isLocked: data.isLocked});
        const symbol = symbolOf(panel, data.symbol);
        const isGreen = data.symbol === "checkmark.circle.fill";
        compare(symbol.size, 20);
        compare(symbol.weight, Font.DemiBold);
        compareColor(symbol.color, isGreen ? "#34C759" : Theme.secondary, "symbol");
        compareFont(textOf(panel, data.title).font, 13, Font.Bold);
        compareColor(textOf(panel, data.title).color, Theme.primary, "title");
        compareFont(textOf(panel, data.explanation).font, 12, Font.Normal);
        compareColor(textOf(panel, data.explanation).color, Theme.secondary, "explanation");
        mac.makeDark();
        compareColor(symbol.color, isGreen ? "#30D158" : Theme.secondary, "symbol in the dark");
    }
    function test_assistiveProgramsAreToldTheSame_data() {
        return states();
    }
    function test_assistiveProgramsAreToldTheSame(data) {
        const told = mac.told(show(view, {isInstalled: data.isInstalled, isLocked: data.isLocked}));
        compare(told.role, "StaticText");
        compare(told.name, data.title);
        compare(told.description, data.explanation);
    }
    function test_changesWithTheFolder() {
        const panel = show(view, {});
        panel.isInstalled = true;
        verify(textOf(panel, "In Dock"));
        verify(!symbolOf(panel, "circle"));
        panel.isLocked = true;
        verify(textOf(panel, "App Store Folder"));
    }
    function test_theTextsStandBesideTheSymbol() {
        const panel = show(view, {});
        const symbol = symbolOf(panel, "circle");
        const title = textOf(panel, "Not in Dock");
        const explanation = textOf(panel, "Click \"Show in Dock\" to install.");
        compare(place(symbol, panel).x, 0);
        compare(place(title, panel).x, symbol.width + 12);
        compare(place(explanation, panel).x, place(title, panel).x);
        compare(place(explanation, panel).y, title.height + 2);
        compare(panel.implicitHeight, title.height + 2 + explanation.height);
        panel.LayoutMirroring.enabled = true;
        panel.LayoutMirroring.childrenInherit = true;
        compare(place(symbol, panel).x, 400 - symbol.width);
        compare(place(title, panel).x + title.width, 400 - symbol.width - 12);
    }
    function test_textsWithoutRoomEndInDots() {
        const panel = show(view, {width: 120});
        const explanation = textOf(panel, "Click \"Show in Dock\" to install.");
        verify(explanation.truncated);
        verify(place(explanation, panel).x + explanation.width <= 120);
    }
}
