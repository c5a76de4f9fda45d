import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "CompanionGridPicker"

    readonly property var names: ["Auto", "2 × 2", "3 × 3", "4 × 4"]

    Component {
        id: view

        CompanionGridPicker {
            selected: 0
        }
    }
    SignalSpy {
        id: changes
        signalName: "changed"
    }

    function shown(values) {
        const picker = show(view, values);
        changes.target = picker;
        changes.clear();
        return picker;
    }
    function ground(cell) {
        return part(cell, part => part instanceof Rectangle && part.radius === 5).color;
    }
    function label(picker, index) {
        return textOf(picker.cellAt(index), names[index]);
    }

    function test_offersFourSizesInARow() {
        const picker = shown({});
        compare(picker.count, 4);
        let right = 2;
        for (let i = 0; i < 4; ++i) {
            const cell = place(picker.cellAt(i), picker);
            verify(label(picker, i), names[i]);
            compare(cell.x, right);
            compare(cell.y, 2);
            compare(cell.height, 24);
            verify(cell.width >= 52);
            right = cell.right + 2;
        }
        compare(Qt.size(picker.width, picker.height), Qt.size(right, 28));
    }
    function test_highlightsWhatIsSelected_data() {
        return [
            {tag: "automatic", columns: 0, cell: 0},
            {tag: "two", columns: 2, cell: 1},
            {tag: "three", columns: 3, cell: 2},
            {tag: "four", columns: 4, cell: 3},
            {tag: "what is not offered", columns: 7, cell: -1}
        ];
    }
    function test_highlightsWhatIsSelected(data) {
        const picker = shown({selected: data.columns});
        for (let i = 0; i < 4; ++i) {
            const isSelected = i === data.cell;
            compareColor(ground(picker.cellAt(i)), isSelected ? Theme.accentFill : "transparent", names[i]);
            compareColor(label(picker, i).color, isSelected ? Theme.accentText : Theme.primary, names[i]);
            compareFont(label(picker, i).font, 13, isSelected ? Font.Medium : Font.Normal);
            compare(mac.told(picker.cellAt(i)).states.includes("checked"), isSelected);
        }
    }
    function test_tellsWhatIsPressedAndChangesNothing() {
        const picker = shown({selected: 3});
        const told = [];
        for (let i = 0; i < 4; ++i) {
            mouseClick(picker.cellAt(i));
            told.push(words(changes)[i]);
        }
        compare(told, [0, 2, 3, 4]);
        compare(picker.selected, 3);
        compareColor(ground(picker.cellAt(2)), Theme.accentFill, "still selected");
        verify(!Qt.colorEqual(ground(picker.cellAt(3)), Theme.accentFill));
    }
    function test_theGroundTellsOfThePointer() {
        const picker = shown({});
        const cell = picker.cellAt(2);
        mouseMove(cell, 10, 10);
        compareColor(ground(cell), Theme.faded(Theme.primary, 0.06), "hovered");
        mousePress(cell, 10, 10);
        compareColor(ground(cell), Theme.faded(Theme.primary, 0.14), "pressed");
        mouseRelease(cell, 10, 10);
    }
    function test_arrowsMoveWithoutChoosing() {
        const picker = shown({selected: 2});
        picker.cellAt(1).forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        verify(picker.cellAt(2).activeFocus);
        verify(hasRing(picker));
        keyClick(Qt.Key_End);
        verify(picker.cellAt(3).activeFocus);
        keyClick(Qt.Key_Right); // no further
        verify(picker.cellAt(3).activeFocus);
        keyClick(Qt.Key_Home);
        verify(picker.cellAt(0).activeFocus);
        compare(changes.count, 0);
        keyClick(Qt.Key_Space);
        compare(words(changes), [0]);
        keyClick(Qt.Key_Left);
        verify(picker.cellAt(0).activeFocus);
        keyClick(Qt.Key_Down); // one row
        verify(picker.cellAt(0).activeFocus);
    }
    function test_onlyOneCellIsAStopOfTheTabKey() {
        const picker = shown({selected: 4});
        for (let i = 0; i < 4; ++i)
            compare(picker.cellAt(i).activeFocusOnTab, i === 3);
        picker.selected = 2;
        for (let i = 0; i < 4; ++i)
            compare(picker.cellAt(i).activeFocusOnTab, i === 1);
    }
    function test_assistiveProgramsAreToldOfAGroup() {
        const picker = shown({});
        compare(mac.told(picker).role, "Grouping");
        compare(mac.told(picker).name, "Grid Size");
        for (let i = 0; i < 4; ++i) {
            const told = mac.told(picker.cellAt(i));
            compare(told.role, "RadioButton");
            compare(told.name, names[i]);
        }
        mac.act(picker.cellAt(3), "Press");
        compare(words(changes), [4]);
    }
    function test_aWiderWordGetsAWiderCell() {
        const picker = shown({});
        const cell = picker.cellAt(1);
        cell.text = "Zwei mal zwei";
        compare(cell.width, Math.max(52, textOf(cell, cell.text).implicitWidth + 16));
        verify(cell.width > 52);
    }
}
