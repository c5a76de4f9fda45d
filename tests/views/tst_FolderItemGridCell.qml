import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "FolderItemGridCell"

    Component {
        id: view

        FolderItemGridCell {
            x: 50
            y: 50
            itemID: "1"
            name: "Lantern"
            url: "file:///Applications/Lantern.app/"
            path: "/Applications/Lantern.app"
            isLocked: false
            isDragging: false
            showsFocusRing: false
        }
    }
    SignalSpy {
        id: removals
        signalName: "removeRequested"
    }
    SignalSpy {
        id: presses
        signalName: "pressed"
    }
    SignalSpy {
        id: drags
        signalName: "dragStarted"
    }
    SignalSpy {
        id: moves
        signalName: "moveRequested"
    }

    function shown(values) {
        mac.setIcon("file:///Applications/Lantern.app/", "#00A000");
        const cell = show(view, values);
        for (const spy of [removals, presses, drags, moves]) {
            spy.target = cell;
            spy.clear();
        }
        tryVerify(() => icon(cell).isLoaded);
        return cell;
    }
    function icon(cell) {
        return part(cell, part => part instanceof FileIcon);
    }
    function removeButton(cell) {
        return part(cell, part => part instanceof RemoveButton);
    }
    function mark(cell) {
        return symbolOf(cell, "xmark.circle.fill");
    }
    // In the lower left corner, where nothing but the ground is.
    function ground(cell) {
        return seen(test, cell.x + 4, cell.y + 80);
    }

    function test_theIconIsOverTheName() {
        const cell = shown({});
        const label = textOf(cell, "Lantern");
        compare(Qt.size(cell.width, cell.height), Qt.size(96, 92));
        compare(place(icon(cell), cell), Qt.rect(20, 6, 56, 56));
        compare(place(label, cell).y, 6 + 56 + 6);
        fuzzyCompare(place(label, cell).x + label.width / 2, 48, 0.51);
        compareFont(label.font, 11, Font.Normal);
        compareColor(label.color, Theme.primary, "name");
        compareSeen(test, 50 + 48, 50 + 34, "#00A000", "icon");
    }
    function test_theIconHasAShadowBelow() {
        const cell = shown({});
        const below = seen(test, cell.x + 48, cell.y + 6 + 56 + 1).r;
        const beside = seen(test, cell.x + 48, cell.y + 6 - 2).r;
        verify(below < 1);
        verify(below < beside);
    }
    function test_aLongNameIsShortenedInItsMiddle() {
        const cell = shown({name: "A document with a name of many words.txt"});
        const label = textOf(cell, cell.name);
        compare(label.width, 88);
        compare(label.elide, Text.ElideMiddle);
        verify(label.truncated);
        mouseMove(cell, 48, 50);
        tryVerify(() => cell.HelpTag.isShown);
        compare(cell.HelpTag.text, cell.name);
        cell.name = "Short";
        verify(!cell.HelpTag.isShown);
    }
    function test_isLitUnderThePointer() {
        const cell = shown({});
        compareColor(ground(cell), "white", "at rest");
        mouseMove(cell, 48, 50);
        compareSeen(test, cell.x + 4, cell.y + 80, over(Theme.faded(Theme.primary, 0.06), "white"), "hovered");
        compareColor(seen(test, cell.x, cell.y), "white", "round corner");
        leave();
        tryVerify(() => isSeen(test, cell.x + 4, cell.y + 80, "white"));
    }
    function test_theRemoveButtonComesWithThePointer() {
        const cell = shown({});
        verify(!mark(cell));
        mouseMove(cell, 48, 50);
        compare(mark(cell).size, 16);
        compare(mark(cell).weight, Font.Medium);
        compareColor(mark(cell).color, "white", "mark");
        const corner = place(removeButton(cell), cell);
        compare(Qt.point(corner.right, corner.top), Qt.point(96, 0));
        mouseClick(removeButton(cell));
        compare(removals.count, 1);
        compare(presses.count, 0);
        leave();
        verify(!mark(cell));
    }
    function test_theRemoveButtonIsThereForAssistivePrograms() {
        const cell = shown({});
        const told = mac.told(removeButton(cell));
        compare(told.role, "Button");
        compare(told.name, "Remove Lantern");
        mac.act(removeButton(cell), "Press");
        compare(removals.count, 1);
    }
    function test_aLockedFoldersCellIsReadOnly() {
        const cell = shown({isLocked: true});
        mouseMove(cell, 48, 50);
        verify(!removeButton(cell));
        verify(!mark(cell));
        mouseDrag(cell, 40, 40, 30, 0);
        compare(drags.count, 0);
        compareSeen(test, cell.x + 4, cell.y + 80, over(Theme.faded(Theme.primary, 0.06), "white"), "hovered");
    }
    function test_aClickPressesIt() {
        const cell = shown({});
        mouseClick(cell, 48, 50);
        compare(presses.count, 1);
        compare(drags.count, 0);
    }
    function test_aMovementDragsIt() {
        const cell = shown({});
        mousePress(cell, 40, 40);
        mouseMove(cell, 43, 40); // a hand trembles
        compare(drags.count, 0);
        mouseMove(cell, 60, 40);
        compare(drags.count, 1);
        verify(cell.isHeld);
        compare(cell.holdPlace, Qt.point(40, 40));
        mouseRelease(cell, 60, 40);
        verify(!cell.isHeld);
        compare(presses.count, 1); // what is dragged is where the keyboard goes on
    }
    function test_whatIsDraggedIsFaintAndSmall() {
        const cell = shown({});
        mouseMove(cell, 48, 50);
        verify(mark(cell));
        cell.isDragging = true;
        tryCompare(cell, "opacity", 0.35);
        tryCompare(cell, "scale", 0.95);
        verify(!mark(cell));
        cell.isDragging = false;
        tryCompare(cell, "opacity", 1);
        tryCompare(cell, "scale", 1);
    }
    function test_slidesWithoutLeavingItsPlace() {
        const cell = shown({shift: Qt.point(100, 20)});
        compare(place(icon(cell), cell), Qt.rect(120, 26, 56, 56));
        compareSeen(test, 50 + 148, 50 + 54, "#00A000", "icon");
        mouseClick(cell, 48, 50);
        compare(presses.count, 1);
    }
    function test_theKeyboardSeesItsRingAndTheRemoveButton() {
        const cell = shown({showsFocusRing: true});
        const ring = part(cell, part => part instanceof FocusRing);
        compare(place(ring, cell), Qt.rect(-3, -3, 102, 98));
        compare(ring.radius, 13);
        verify(mark(cell));
        cell.showsFocusRing = false;
        verify(!hasRing(cell));
        verify(!mark(cell));
    }
    function test_assistiveProgramsAreToldOfIt() {
        const cell = shown({});
        const told = mac.told(cell);
        compare(told.role, "ListItem");
        compare(told.name, "Lantern");
        compare(told.description, "/Applications/Lantern.app");
        mac.act(cell, "Press");
        compare(presses.count, 1);
        mac.act(cell, "Increase");
        mac.act(cell, "Decrease");
        compare(words(moves), [1, -1]);
    }
}
