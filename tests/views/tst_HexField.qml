import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "HexField"

    Component {
        id: view

        Item {
            readonly property ColorComponents colors: ColorComponents {}
            readonly property HexField field: hexField

            width: 200
            height: 24
            Component.onCompleted: colors.show("#4F83D3")

            HexField {
                id: hexField
                width: parent.width
                components: parent.colors
            }
        }
    }
    SignalSpy {
        id: edits
        signalName: "edited"
    }

    function shown() {
        const scene = show(view, {});
        edits.target = scene.colors;
        edits.clear();
        return scene;
    }
    function type(field, text) {
        field.forceActiveFocus(Qt.TabFocusReason);
        for (const letter of text)
            keyClick(letter);
    }

    function test_showsTheColour() {
        const scene = shown();
        compare(scene.field.text, "#4F83D3");
        scene.colors.show("#000000");
        compare(scene.field.text, "#000000");
        scene.colors.hue = 120;
        scene.colors.setSaturationAndBrightness(100, 100);
        compare(scene.field.text, "#00FF00");
    }
    function test_enteringSelectsAllOfIt() {
        const scene = shown();
        mouseClick(scene.field);
        keyClick(Qt.Key_Tab);
        scene.field.forceActiveFocus(Qt.TabFocusReason);
        compare(scene.field.selectedText, "#4F83D3");
    }
    function test_returnTakesTheColour_data() {
        return [
            {tag: "as it is written", text: "#12AB34"},
            {tag: "without its sign", text: "12AB34"},
            {tag: "in small letters", text: "12ab34"},
            {tag: "with blanks around it", text: "  #12ab34 "}
        ];
    }
    function test_returnTakesTheColour(data) {
        const scene = shown();
        type(scene.field, data.text);
        compare(scene.colors.hex, "#4F83D3"); // not yet
        keyClick(Qt.Key_Return);
        compare(words(edits), ["#12AB34"]);
        compare(scene.field.text, "#12AB34");
    }
    function test_leavingTakesTheColour() {
        const scene = shown();
        type(scene.field, "12AB34");
        test.forceActiveFocus();
        compare(words(edits), ["#12AB34"]);
    }
    function test_whatIsNoColourIsPutBack_data() {
        return ["12AB3", "12AB345", "red", "#12AB3G", "##12AB34"].map(text => ({tag: text}));
    }
    function test_whatIsNoColourIsPutBack(data) {
        const scene = shown();
        type(scene.field, data.tag);
        keyClick(Qt.Key_Return);
        compare(edits.count, 0);
        compare(scene.field.text, "#4F83D3");
        scene.colors.show("#000000"); // and follows again
        compare(scene.field.text, "#000000");
    }
    function test_emptiedItIsPutBack() {
        const scene = shown();
        scene.field.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Delete);
        compare(scene.field.text, "");
        keyClick(Qt.Key_Return);
        compare(scene.field.text, "#4F83D3");
    }
    function test_escapePutsBackAndTellsNothing() {
        const scene = shown();
        type(scene.field, "12AB34");
        keyClick(Qt.Key_Escape);
        compare(scene.field.text, "#4F83D3");
        test.forceActiveFocus();
        compare(edits.count, 0);
    }
    function test_whatIsTypedOutlivesNoOtherColour() {
        const scene = shown();
        type(scene.field, "12");
        scene.colors.show("#000000");
        keyClick(Qt.Key_Return);
        compare(scene.field.text, "#000000");
        compare(scene.colors.hex, "#000000");
    }
    function test_isNamed() {
        const told = mac.told(shown().field);
        compare([told.role, told.name, told.value], ["EditableText", "Hex Color", "#4F83D3"]);
    }
}
