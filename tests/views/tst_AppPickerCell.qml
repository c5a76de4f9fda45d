import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "AppPickerCell"

    Component {
        id: view

        AppPickerCell {
            width: 80
            height: 108
            url: "file:///Applications/Lantern.app/"
            name: "Lantern"
            isSelected: false
            alreadyAdded: false
        }
    }
    SignalSpy {
        id: toggles
        signalName: "toggled"
    }

    function shown(values) {
        mac.setIcon("file:///Applications/Lantern.app/", "#00A000");
        const cell = show(view, values);
        toggles.target = cell;
        toggles.clear();
        tryVerify(() => icon(cell).isLoaded);
        return cell;
    }
    function icon(cell) {
        return part(cell, part => part instanceof FileIcon);
    }
    function tile(cell) {
        return part(cell, part => part instanceof OutlinedRectangle);
    }
    function badge(cell) {
        return symbolOf(cell, "checkmark.circle.fill");
    }

    function test_theIconIsOverTheName() {
        const cell = shown({});
        const label = textOf(cell, "Lantern");
        compare(place(tile(cell), cell), Qt.rect(4, 6, 72, 96));
        compare(place(icon(cell), cell), Qt.rect(16, 14, 48, 48));
        compare(place(label, cell).y, 14 + 48 + 4);
        compare(label.horizontalAlignment, Text.AlignHCenter);
        compareFont(label.font, 10, Font.Normal);
        compareSeen(cell, 40, 38, "#00A000", "icon");
    }
    function test_itsLookTellsItsState_data() {
        const blue = Qt.color("#007AFF");
        return [
            {tag: "otherwise", isSelected: false, alreadyAdded: false, ground: 0, badge: null, ink: "primary", icon: 1},
            {tag: "selected", isSelected: true, alreadyAdded: false, ground: 0.12, badge: blue, ink: "primary", icon: 1},
            {tag: "already added", isSelected: false, alreadyAdded: true, ground: 0, badge: Theme.secondary, ink: "secondary", icon: 0.4}
        ];
    }
    function test_itsLookTellsItsState(data) {
        const cell = shown({isSelected: data.isSelected, alreadyAdded: data.alreadyAdded});
        compareColor(tile(cell).color, Theme.faded(Theme.blue, data.ground), "ground");
        compareColor(tile(cell).border.color, Theme.faded(Theme.blue, data.isSelected ? 1 : 0), "outline");
        compare(tile(cell).radius, 10);
        compareColor(textOf(cell, "Lantern").color, Theme[data.ink], "name");
        compare(icon(cell).opacity, data.icon);
        compare(badge(cell) !== null, data.badge !== null);
        if (data.badge) {
            compareColor(badge(cell).color, data.badge, "badge");
            const corner = place(badge(cell), cell);
            compare(corner.right, 4 + 72 - 4);
            compare(corner.top, 6 + 4);
        }
    }
    function test_theOutlineIsWholePixelsWide() {
        const cell = shown({isSelected: true});
        compare(tile(cell).border.width, 2); // 1.5 at this resolution
        for (const x of [4, 5])
            compareSeen(cell, x, 60, "#007AFF", "outline");
        compareSeen(cell, 6, 60, over(Theme.faded(Theme.blue, 0.12), "white"), "inside");
    }
    function test_onlyWhatCanBeChosenIsLitUnderThePointer_data() {
        return [
            {tag: "otherwise", isSelected: false, alreadyAdded: false, isLit: true},
            {tag: "selected", isSelected: true, alreadyAdded: false, isLit: false},
            {tag: "already added", isSelected: false, alreadyAdded: true, isLit: false}
        ];
    }
    function test_onlyWhatCanBeChosenIsLitUnderThePointer(data) {
        const cell = shown({isSelected: data.isSelected, alreadyAdded: data.alreadyAdded});
        const before = seen(cell, 10, 90);
        cell.isHovered = true;
        if (data.isLit)
            compareSeen(cell, 10, 90, over(Theme.faded(Theme.primary, 0.06), "white"), "hovered");
        else
            compareColor(seen(cell, 10, 90), before, "hovered");
    }
    function test_assistiveProgramsAreToldOfACheckBox() {
        const cell = shown({isSelected: true});
        const told = mac.told(cell);
        compare(told.role, "CheckBox");
        compare(told.name, "Lantern");
        compare(told.description, "");
        compare(told.states, ["checkable", "checked"]);
        cell.isSelected = false;
        compare(mac.told(cell).states, ["checkable"]);
        for (const action of ["Press", "Toggle"])
            mac.act(cell, action);
        compare(toggles.count, 2);
    }
    function test_whatIsThereAlreadyTakesPartInNothing() {
        const cell = shown({alreadyAdded: true});
        const told = mac.told(cell);
        compare(told.description, "Already added");
        compare(told.states, ["readOnly"]);
        for (const action of ["Press", "Toggle"])
            mac.act(cell, action);
        cell.toggle();
        compare(toggles.count, 0);
    }
    function test_onlyItsTileCanBeHit() {
        const cell = shown({});
        verify(cell.covers(Qt.point(5, 7)));
        verify(!cell.covers(Qt.point(2, 50)));
        verify(!cell.covers(Qt.point(40, 3)));
    }
    function test_aLongNameTakesTwoLines() {
        const cell = shown({name: "A very long name of an application that has no end"});
        const label = textOf(cell, cell.name);
        compare(label.lineCount, 2);
        verify(label.truncated);
        verify(place(label, cell).bottom <= 6 + 96);
        cell.isHovered = true;
        tryVerify(() => cell.HelpTag.isShown);
        compare(cell.HelpTag.text, cell.name);
        cell.name = "Short";
        verify(!cell.HelpTag.isShown);
    }
    function test_theRingIsAroundTheTile() {
        const cell = shown({});
        verify(!hasRing(cell));
        cell.hasFocusRing = true;
        const ring = part(cell, part => part instanceof FocusRing);
        compare(ring.radius, 13);
        compare(ring.border.width, 3);
        compare(place(ring, cell), Qt.rect(1, 3, 78, 102));
    }
}
