import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "DockButton"

    Component {
        id: view

        DockButton {
            isInstalled: false
            isBusy: false
        }
    }
    Component {
        id: styleView

        DockButtonStyle {
            width: 120
            height: 36
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
    function dot(button) {
        return part(button.contentItem, part => part instanceof Rectangle && part.radius === 4);
    }
    function spinner(button) {
        return part(button, part => part instanceof ProgressSpinner);
    }

    function test_saysWhatItDoes_data() {
        return [
            {tag: "not in the Dock", isInstalled: false, isBusy: false, text: "Show in Dock"},
            {tag: "in the Dock", isInstalled: true, isBusy: false, text: "Update Dock"},
            {tag: "on its way", isInstalled: false, isBusy: true, text: "Adding to Dock"},
            {tag: "being built anew", isInstalled: true, isBusy: true, text: "Updating Dock"}
        ];
    }
    function test_saysWhatItDoes(data) {
        const button = shown({isInstalled: data.isInstalled, isBusy: data.isBusy});
        const label = textOf(button, data.text);
        compareFont(label.font, 13, Font.Medium);
        compare(mac.told(button).name, data.text);
        compare(mac.told(button).role, "Button");
        compare(button.enabled, !data.isBusy);
        compare(spinner(button) !== null, data.isBusy);
        compare(dot(button) !== null, !data.isBusy);
        compare(button.contentItem.opacity, data.isBusy ? 0.6 : 1);
    }
    function test_theDotTellsWhereTheFolderStands_data() {
        return [{tag: "light", isDark: false}, {tag: "dark", isDark: true}];
    }
    function test_theDotTellsWhereTheFolderStands(data) {
        if (data.isDark)
            mac.makeDark();
        const button = shown({});
        compareColor(dot(button).color, Theme.faded(Theme.secondary, 0.5), "not in the Dock");
        button.isInstalled = true;
        compareColor(dot(button).color, data.isDark ? "#30D158" : "#34C759", "in the Dock");
    }
    function test_keepsItsMeasures() {
        const button = shown({});
        const label = textOf(button, "Show in Dock");
        compare(Qt.size(dot(button).width, dot(button).height), Qt.size(8, 8));
        compare(place(dot(button), button).x, 20);
        compare(place(label, button).x, 36); // the dot, and 8
        compare(button.width, 36 + label.width + 20);
        compare(button.height, label.height + 20);
        const height = button.height;
        button.isBusy = true;
        compare(button.height, height);
    }
    function test_isClicked() {
        const button = shown({});
        mouseClick(button);
        compare(clicks.count, 1);
        for (const key of [Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter])
            keyClick(key);
        compare(clicks.count, 4);
        mac.act(button, "Press");
        compare(clicks.count, 5);
    }
    function test_restsWhileItsWorkIsDone() {
        const button = shown({isBusy: true});
        mouseClick(button);
        mac.act(button, "Press");
        compare(clicks.count, 0);
        button.isBusy = false;
        mouseClick(button);
        compare(clicks.count, 1);
    }
    function test_itsGroundTellsOfPointerAndKeyboard() {
        const button = shown({});
        verify(!button.background.isHovered);
        mouseMove(button, 10, 10);
        verify(button.background.isHovered);
        mousePress(button);
        verify(button.background.isPressed);
        verify(!button.background.hasFocusRing);
        mouseRelease(button);
        keyClick(Qt.Key_Shift);
        verify(button.background.hasFocusRing);
    }
    function test_theGroundIsThatOfABorderedButton() {
        const ground = show(styleView, {});
        compare(ground.radius, 6);
        compare(ground.border.width, 1);
        compareSeen(ground, 60, 18, Theme.control, "at rest");
        compareSeen(ground, 60, 0, over(Theme.controlBorder, "white"), "border");
        verify(!hasRing(ground));
        ground.isHovered = true;
        compareSeen(ground, 60, 18, over(Theme.faded(Theme.primary, 0.04), Theme.control), "hovered");
        ground.isPressed = true;
        compareSeen(ground, 60, 18, over(Theme.faded(Theme.primary, 0.12), Theme.control), "pressed");
        ground.hasFocusRing = true;
        verify(hasRing(ground));
    }
}
