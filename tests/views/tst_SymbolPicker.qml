import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "SymbolPicker"

    readonly property var symbols: ["star.fill", "briefcase.fill", "house.fill", "heart.fill", "book.fill",
        "gamecontroller.fill", "music.note", "photo.fill", "doc.fill", "terminal.fill", "cart.fill", "airplane",
        "person.fill", "globe", "gear", "cloud.fill"]
    readonly property int image: 17

    Component {
        id: view

        SymbolPicker {
            selectedSymbol: ""
            hasCustomIcon: false
        }
    }
    SignalSpy {
        id: changes
        signalName: "changed"
    }
    SignalSpy {
        id: requests
        signalName: "pickImageRequested"
    }

    function shown(values) {
        const picker = show(view, values);
        for (const spy of [changes, requests]) {
            spy.target = picker;
            spy.clear();
        }
        return picker;
    }
    function ground(cell) {
        return part(cell, part => part instanceof Rectangle && part.radius === 7);
    }
    function symbol(cell) {
        return part(cell, part => part instanceof Symbol);
    }
    function checkedCells(picker) {
        const cells = [];
        for (let i = 0; i < picker.count; ++i) {
            if (mac.told(picker.cellAt(i)).states.includes("checked"))
                cells.push(i);
        }
        return cells;
    }

    function test_offersTheSymbolsInRowsOfSix() {
        const picker = shown({});
        const found = [];
        for (let i = 0; i < picker.count; ++i) {
            const cell = picker.cellAt(i);
            compare(place(cell, picker), Qt.rect(i % 6 * 38, Math.floor(i / 6) * 38, 32, 32));
            compare(symbol(cell).size, 16);
            found.push(symbol(cell).name);
        }
        compare(found, ["square.grid.2x2"].concat(symbols, ["photo.badge.plus"]));
    }
    function test_theChosenCellIsTintedAndOutlined_data() {
        return [
            {tag: "a symbol", symbol: "airplane", hasImage: false, cell: 12, ink: "accent"},
            {tag: "none", symbol: "", hasImage: false, cell: 0, ink: "primary"},
            {tag: "an image", symbol: "", hasImage: true, cell: 17, ink: "accent"},
            {tag: "an image over a symbol", symbol: "star.fill", hasImage: true, cell: 17, ink: "accent"},
            {tag: "a symbol that is not offered", symbol: "leaf.fill", hasImage: false, cell: -1, ink: ""}
        ];
    }
    function test_theChosenCellIsTintedAndOutlined(data) {
        const picker = shown({selectedSymbol: data.symbol, hasCustomIcon: data.hasImage});
        mac.setAccent("#AF52DE");
        compare(checkedCells(picker), data.cell < 0 ? [] : [data.cell]);
        for (let i = 0; i < picker.count; ++i) {
            const cell = picker.cellAt(i);
            const isChosen = i === data.cell;
            compareColor(ground(cell).color, isChosen ? Theme.faded(Theme.accent, 0.15) : Theme.faded(Theme.secondary, 0.1), `ground ${i}`);
            compareColor(ground(cell).border.color, Theme.faded(Theme.accent, isChosen ? 1 : 0), `outline ${i}`);
            compareColor(symbol(cell).color, isChosen ? Theme[data.ink] : Theme.secondary, `symbol ${i}`);
        }
    }
    function test_tellsWhatIsPressedAndChangesNothing() {
        const picker = shown({selectedSymbol: "globe"});
        for (let i = 0; i < picker.count; ++i)
            mouseClick(picker.cellAt(i));
        compare(words(changes), [""].concat(symbols));
        compare(requests.count, 1);
        compare(checkedCells(picker), [14]);
    }
    function test_theImageIsAskedFor() {
        const picker = shown({});
        picker.cellAt(image).forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        mac.act(picker.cellAt(image), "Press");
        compare(requests.count, 2);
        compare(changes.count, 0);
    }
    function test_theGroundTellsOfThePointer() {
        const cell = shown({}).cellAt(5);
        mouseMove(cell, 16, 16);
        compareColor(ground(cell).color, Theme.faded(Theme.secondary, 0.16), "hovered");
        mousePress(cell);
        compareColor(ground(cell).color, Theme.faded(Theme.secondary, 0.22), "pressed");
        mouseMove(cell, 200, 200); // still held
        compareColor(ground(cell).color, Theme.faded(Theme.secondary, 0.1), "left");
        mouseRelease(cell, 200, 200);
        compare(changes.count, 0);
    }
    function test_takesOtherMeasures() {
        const picker = shown({size: 24, columns: 9});
        compare(place(picker.cellAt(10), picker), Qt.rect(30, 30, 24, 24));
        compare(symbol(picker.cellAt(10)).size, 12);
        picker.cellAt(1).forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);
        verify(picker.cellAt(10).activeFocus);
    }
    function test_theTooltipSaysWhatTheSymbolIs_data() {
        return [
            {tag: "none", cell: 0, text: "No symbol (show app grid)"},
            {tag: "a symbol", cell: 6, text: "Game Controller"},
            {tag: "an image", cell: 17, text: "Load custom image…"}
        ];
    }
    function test_theTooltipSaysWhatTheSymbolIs(data) {
        const cell = shown({}).cellAt(data.cell);
        mouseMove(cell, 16, 16);
        tryVerify(() => mac.helpTag(cell) === data.text);
        compare(mac.told(cell).name, data.text);
        leave();
        tryVerify(() => mac.helpTag(cell) === "");
    }
    function test_looksDesignedInTheDark() {
        mac.makeDark();
        const picker = shown({selectedSymbol: "star.fill"});
        compareColor(symbol(picker.cellAt(1)).color, "#0A84FF", "chosen");
        compareColor(symbol(picker.cellAt(2)).color, Qt.rgba(1, 1, 1, 0.55), "others");
    }
}
