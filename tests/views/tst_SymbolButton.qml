import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "SymbolButton"

    Component {
        id: view

        SymbolButton {
            symbol: "plus"
            text: "New Dock Folder"
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
    function ground(button) {
        return button.background.color;
    }

    function test_showsItsSymbolAlone() {
        const button = shown({});
        compare(Qt.size(button.width, button.height), Qt.size(28, 28));
        const symbol = symbolOf(button, "plus");
        compare(symbol.size, 16);
        compareColor(symbol.color, Theme.secondary, "symbol");
        compare(place(symbol, button).x + symbol.width / 2, 14);
        compare(place(symbol, button).y + symbol.height / 2, 14);
        verify(!textOf(button, button.text));
    }
    function test_takesSizeAndWeightOfItsSymbol() {
        const symbol = symbolOf(shown({symbolSize: 11, symbolWeight: Font.Medium}), "plus");
        compare(symbol.size, 11);
        compare(symbol.weight, Font.Medium);
    }
    function test_isNamedByItsText() {
        const told = mac.told(shown({}));
        compare(told.role, "Button");
        compare(told.name, "New Dock Folder");
        compare(told.states, []);
    }
    function test_isClickedByThePointer() {
        const button = shown({});
        mouseClick(button);
        compare(clicks.count, 1);
        mousePress(button);
        mouseMove(button, 100, 100);
        mouseRelease(button, 100, 100); // thought better of
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
    }
    function test_isClickedByAssistivePrograms() {
        mac.act(shown({}), "Press");
        compare(clicks.count, 1);
    }
    function test_disabledItIsFaintAndActsOnNothing() {
        const button = shown({enabled: false});
        compare(button.contentItem.opacity, 0.4);
        mouseClick(button);
        keyClick(Qt.Key_Space);
        mac.act(button, "Press");
        compare(clicks.count, 0);
    }
    function test_itsGroundTellsOfThePointer() {
        const button = shown({});
        compareColor(ground(button), "transparent", "at rest");
        mouseMove(button, 14, 14);
        compareColor(ground(button), Theme.faded(Theme.primary, 0.06), "hovered");
        mousePress(button);
        compareColor(ground(button), Theme.faded(Theme.primary, 0.12), "pressed");
        mouseRelease(button);
        compareColor(ground(button), Theme.faded(Theme.primary, 0.06), "let go");
        leave();
        compareColor(ground(button), "transparent", "left");
        button.isMenuShown = true;
        compareColor(ground(button), Theme.faded(Theme.primary, 0.12), "with its menu");
    }
    function test_isWhiteInTheDark() {
        mac.makeDark();
        compareColor(symbolOf(shown({}), "plus").color, Qt.rgba(1, 1, 1, 0.55), "symbol");
    }
    function test_theRingIsForTheKeyboard() {
        const button = shown({});
        mouseClick(button);
        verify(!hasRing(button));
        button.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Shift);
        verify(hasRing(button));
        mousePress(button);
        verify(!hasRing(button));
        mouseRelease(button);
    }
    function test_theTooltipSaysItsText() {
        const button = shown({});
        mouseMove(button, 14, 14);
        verify(mac.helpTag(button) === ""); // after a while
        tryVerify(() => mac.helpTag(button) === "New Dock Folder");
        mousePress(button);
        tryVerify(() => mac.helpTag(button) === "");
        mouseRelease(button);
    }
    function test_theMenuTakesThePlaceOfTheTooltip() {
        const button = shown({isMenuShown: true});
        mouseMove(button, 14, 14);
        wait(Theme.toolTipDelay + 100); // in which it would have come
        verify(!button.HelpTag.isShown);
        button.isMenuShown = false;
        tryVerify(() => button.HelpTag.isShown);
    }
}
