import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "AccentColorPicker"

    readonly property var palette: ["#4F83D3", "#E05757", "#4DAE72", "#E0933C", "#9B6DD4", "#D45FA0", "#3DAEC0",
        "#7A6640", "#2D7D9A", "#5B8C5A", "#C4A35A", "#8B5E3C", "#6B7B8D"]
    readonly property int custom: 13
    readonly property int automatic: 14

    Component {
        id: view

        AccentColorPicker {
            selectedHex: ""
        }
    }
    SignalSpy {
        id: changes
        signalName: "changed"
    }
    SignalSpy {
        id: requests
        signalName: "customColorRequested"
    }

    function shown(values) {
        const picker = show(view, values);
        for (const spy of [changes, requests]) {
            spy.target = picker;
            spy.clear();
        }
        return picker;
    }
    function checkedCells(picker) {
        const cells = [];
        for (let i = 0; i < picker.count; ++i) {
            if (mac.told(picker.cellAt(i)).states.includes("checked"))
                cells.push(i);
        }
        return cells;
    }
    function outline(cell) {
        return part(cell, part => part instanceof Rectangle && part.border.width === 2);
    }
    // In a corner, beside any symbol.
    function colorOfSwatch(cell) {
        return seen(cell, 20, 21);
    }

    function test_offersThePaletteInRowsOfFive() {
        const picker = shown({});
        compare(picker.count, 15);
        for (let i = 0; i < 15; ++i)
            compare(place(picker.cellAt(i), picker), Qt.rect(i % 5 * 34, Math.floor(i / 5) * 34, 28, 28));
        for (let i = 0; i < palette.length; ++i)
            compareColor(colorOfSwatch(picker.cellAt(i)), palette[i], `swatch ${i}`);
    }
    function test_takesOtherMeasures() {
        const picker = shown({size: 40, cornerRadius: 10, swatchColumns: 3});
        compare(place(picker.cellAt(4), picker), Qt.rect(46, 46, 40, 40));
        compare(picker.cellAt(4).cornerRadius, 10);
        compare(picker.ringRadius, 10);
    }
    function test_theChosenSwatchIsCheckedAndOutlined_data() {
        return [
            {tag: "the first", hex: "#4F83D3", cell: 0},
            {tag: "the last", hex: "#6B7B8D", cell: 12},
            {tag: "in small letters", hex: "#e0933c", cell: 3}
        ];
    }
    function test_theChosenSwatchIsCheckedAndOutlined(data) {
        const picker = shown({selectedHex: data.hex});
        compare(checkedCells(picker), [data.cell]);
        for (let i = 0; i < palette.length; ++i) {
            const cell = picker.cellAt(i);
            compare(symbolOf(cell, "checkmark") !== null, i === data.cell);
            compare(outline(cell) !== null, i === data.cell);
        }
        const check = symbolOf(picker.cellAt(data.cell), "checkmark");
        compareColor(check.color, "white", "checkmark");
        compare(check.weight, Font.Black);
        compareColor(outline(picker.cellAt(data.cell)).border.color, Theme.accent, "outline");
        verify(symbolOf(picker.cellAt(custom), "paintbrush"));
    }
    function test_aColourOfItsOwnIsTheCustomSwatchs() {
        const picker = shown({selectedHex: "#123456"});
        const cell = picker.cellAt(custom);
        compare(checkedCells(picker), [custom]);
        compareColor(symbolOf(cell, "eyedropper").color, "white", "eyedropper");
        compareColor(colorOfSwatch(cell), "#123456", "swatch");
        compare(mac.told(cell).description, "#123456"); // its name does not say which
        picker.selectedHex = "#4DAE72";
        compare(mac.told(cell).description, "");
        verify(!symbolOf(cell, "eyedropper"));
        compareColor(symbolOf(cell, "paintbrush").color, Theme.secondary, "paintbrush");
        compareSeen(cell, 20, 21, over(Theme.faded(Theme.secondary, 0.1), "white"), "swatch");
    }
    function test_noColourIsTheAutomaticOne() {
        const picker = shown({});
        compare(checkedCells(picker), [automatic]);
        verify(symbolOf(picker.cellAt(automatic), "a.circle"));
        verify(outline(picker.cellAt(automatic)));
    }
    function test_tellsWhatIsPressedAndChangesNothing() {
        const picker = shown({selectedHex: "#4F83D3"});
        for (let i = 0; i < 15; ++i)
            mouseClick(picker.cellAt(i));
        compare(words(changes), palette.concat([""]));
        compare(requests.count, 1);
        compare(checkedCells(picker), [0]);
    }
    function test_theCustomSwatchIsWhereThePanelBelongs() {
        const picker = shown({});
        verify(picker.customSwatch === picker.cellAt(custom));
        mouseClick(picker.customSwatch);
        compare(requests.count, 1);
        compare(changes.count, 0);
    }
    function test_arrowsGoByRows() {
        const picker = shown({selectedHex: "#4DAE72"});
        picker.cellAt(2).forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);
        verify(picker.cellAt(7).activeFocus);
        keyClick(Qt.Key_Down);
        verify(picker.cellAt(12).activeFocus);
        keyClick(Qt.Key_Down); // no further
        verify(picker.cellAt(12).activeFocus);
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Return);
        compare(requests.count, 1);
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Space);
        compare(words(changes), [""]);
    }
    function test_theRingFollowsTheKeyboardRoundTheCell() {
        const picker = shown({});
        picker.cellAt(automatic).forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Up);
        const ring = part(picker, part => part instanceof FocusRing);
        compare(place(ring, picker), Qt.rect(4 * 34 - 3, 34 - 3, 34, 34));
        compare(ring.radius, Theme.swatchRadius + 3);
        mouseClick(picker.cellAt(0));
        verify(!hasRing(picker));
    }
    function test_everySwatchIsNamed() {
        const picker = shown({});
        const names = [];
        for (let i = 0; i < 15; ++i) {
            const told = mac.told(picker.cellAt(i));
            compare(told.role, "RadioButton");
            verify(told.name !== "" && !names.includes(told.name), `swatch ${i}: ${told.name}`);
            names.push(told.name);
        }
        compare(names[0], "Blue");
        compare(names.slice(custom), ["Custom Color…", "Automatic"]);
        compare(mac.told(picker).name, "Color");
    }
    function test_theTooltipSaysTheName() {
        const cell = shown({}).cellAt(3);
        mouseMove(cell, 14, 14);
        tryVerify(() => cell.HelpTag.isShown);
        compare(cell.HelpTag.text, "Orange");
        mousePress(cell);
        verify(!cell.HelpTag.isShown);
        mouseRelease(cell);
        wait(Theme.toolTipDelay + 100);
        verify(!cell.HelpTag.isShown); // not again
    }
}
