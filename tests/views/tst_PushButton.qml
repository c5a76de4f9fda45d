import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "PushButton"

    Component {
        id: view

        PushButton {
            text: "Open"
        }
    }
    SignalSpy {
        id: clicks
        signalName: "clicked"
    }

    function shown(values) {
        const button = show(view, values);
        clicks.target = button;
        clicks.clear();
        return button;
    }
    // What is over the colour of the ground.
    function veil(button) {
        return button.background.children[0].opacity;
    }

    function test_hasRoomAroundItsText_data() {
        return [{tag: "ordinary", isLarge: false, height: 24, inset: 12}, {tag: "large", isLarge: true, height: 32, inset: 16}];
    }
    function test_hasRoomAroundItsText(data) {
        const button = shown({isLarge: data.isLarge});
        const label = textOf(button, "Open");
        compareFont(label.font, 13, Font.Normal);
        compare(button.height, data.height);
        compare(button.width, label.width + 2 * data.inset);
        fuzzyCompare(place(label, button).x, data.inset, 0.5);
        compare(button.background.radius, 6);
    }
    function test_theSymbolGoesBeforeTheText() {
        const button = shown({symbol: "plus"});
        const symbol = symbolOf(button, "plus");
        const label = textOf(button, "Open");
        compare(symbol.size, 13);
        fuzzyCompare(place(symbol, button).x, 12, 0.5);
        compare(place(label, button).x, place(symbol, button).x + symbol.width + 6);
        button.LayoutMirroring.enabled = true;
        button.LayoutMirroring.childrenInherit = true;
        verify(place(label, button).x < place(symbol, button).x);
    }
    function test_aLongTextEndsInDots_data() {
        return [{tag: "text alone", symbol: ""}, {tag: "behind a symbol", symbol: "plus"}];
    }
    function test_aLongTextEndsInDots(data) {
        const button = shown({text: "Remove everything that was ever in here", symbol: data.symbol, width: 120});
        const label = textOf(button, button.text);
        verify(label.truncated);
        verify(place(label, button).x >= 12);
        verify(place(label, button).x + label.width <= 120 - 12);
    }
    function test_itsColoursTellWhatItDoes_data() {
        return [
            {tag: "ordinary", isDefault: false, isDestructive: false, ground: "control", ink: "primary", border: 1},
            {tag: "default", isDefault: true, isDestructive: false, ground: "accentFill", ink: "accentText", border: 0},
            {tag: "destructive", isDefault: false, isDestructive: true, ground: "destructiveControl", ink: "destructiveInk", border: 1},
            {tag: "destructive by default", isDefault: true, isDestructive: true, ground: "redFill", ink: "accentText", border: 0}
        ];
    }
    function test_itsColoursTellWhatItDoes(data) {
        const button = shown({isDefault: data.isDefault, isDestructive: data.isDestructive, symbol: "plus"});
        for (const isDark of [false, true]) {
            if (isDark)
                mac.makeDark();
            compareColor(button.background.color, Theme[data.ground], "ground");
            compareColor(textOf(button, "Open").color, Theme[data.ink], "text");
            compareColor(symbolOf(button, "plus").color, Theme[data.ink], "symbol");
            compare(button.background.border.width, data.border);
        }
    }
    function test_theDefaultOneFollowsTheAccent() {
        const button = shown({isDefault: true});
        const before = String(button.background.color);
        mac.setAccent("#AF52DE");
        verify(String(button.background.color) !== before);
        compareColor(button.background.color, Theme.accentFill, "ground");
    }
    function test_itsGroundTellsOfThePointer() {
        const button = shown({});
        compare(veil(button), 0);
        mouseMove(button, 10, 10);
        compare(veil(button), 0.04);
        mousePress(button);
        compare(veil(button), 0.12);
        compareSeen(button, 4, 12, over(Theme.faded(Theme.primary, 0.12), Theme.control), "pressed");
        mouseRelease(button);
        leave();
        compare(veil(button), 0);
    }
    function test_isClickedByThePointer() {
        const button = shown({});
        mouseClick(button);
        compare(clicks.count, 1);
        mouseClick(button, 10, 10, Qt.RightButton);
        compare(clicks.count, 1);
    }
    function test_isClickedByKeys_data() {
        return [{tag: "space", key: Qt.Key_Space}, {tag: "return", key: Qt.Key_Return}, {tag: "enter", key: Qt.Key_Enter}];
    }
    function test_isClickedByKeys(data) {
        const button = shown({});
        button.forceActiveFocus(Qt.TabFocusReason);
        keyClick(data.key);
        compare(clicks.count, 1);
        keyClick(Qt.Key_A);
        compare(clicks.count, 1);
    }
    function test_disabledItIsFaintAndActsOnNothing() {
        const button = shown({enabled: false, isDefault: true});
        compare(button.contentItem.opacity, 0.4);
        compare(button.background.opacity, 0.5);
        mouseClick(button);
        button.forceActiveFocus();
        keyClick(Qt.Key_Return);
        mac.act(button, "Press");
        compare(clicks.count, 0);
    }
    function test_theRingIsForTheKeyboard() {
        const button = shown({});
        mouseClick(button);
        verify(!hasRing(button));
        button.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Shift);
        const ring = part(button, part => part instanceof FocusRing);
        compare(place(ring, button), Qt.rect(-3, -3, button.width + 6, button.height + 6));
        compare(ring.border.width, 3);
        compare(ring.radius, 9); // concentric
        compareColor(ring.border.color, Theme.faded(Theme.accent, 0.5), "ring");
    }
    function test_assistiveProgramsAreToldOfIt() {
        const told = mac.told(shown({symbol: "plus"}));
        compare(told.role, "Button");
        compare(told.name, "Open");
        verify(told.actions.includes("Press"));
    }
}
