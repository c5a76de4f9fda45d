import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "CompanionTextField"

    Component {
        id: view

        CompanionTextField {
            x: 10
            y: 10
            width: 200
            placeholderText: "Search"
            Accessible.name: "Search for Apps"
        }
    }
    SignalSpy {
        id: acceptances
        signalName: "accepted"
    }

    function test_isALineOfText() {
        const field = show(view, {text: "Work"});
        compare(field.height, 24);
        compareFont(field.font, 13, Font.Normal);
        compare(field.background.radius, 6);
        compareColor(field.color, Theme.primary, "text");
        compareColor(field.background.color, Theme.faded(Theme.secondary, 0.1), "ground");
        compare(field.cursorRectangle.x, 8 + field.contentWidth);
        mac.makeDark();
        compareColor(field.color, Qt.rgba(1, 1, 1, 0.85), "text in the dark");
    }
    function test_thePlaceholderIsReplacedByWhatIsTyped() {
        const field = show(view, {});
        compareColor(field.placeholderTextColor, Theme.secondary, "placeholder");
        const placeholder = part(field, part => part instanceof Text && part.text === "Search");
        verify(placeholder.visible);
        mouseClick(field);
        verify(field.activeFocus);
        for (const letter of "abc")
            keyClick(letter);
        compare(field.text, "abc");
        verify(!placeholder.visible);
    }
    function test_theRingIsForPointerAndKeyboard() {
        const field = show(view, {});
        verify(!hasRing(field));
        mouseClick(field);
        const ring = part(field, part => part instanceof FocusRing);
        compare(place(ring, field), Qt.rect(-3, -3, 206, 30));
        test.forceActiveFocus();
        verify(!hasRing(field));
        field.forceActiveFocus(Qt.TabFocusReason);
        verify(hasRing(field));
    }
    function test_theSelectionIsWhiteOnTheAccent() {
        const field = show(view, {text: "Work and play"});
        mac.setAccent("#AF52DE");
        compareColor(field.selectionColor, Theme.accentFill, "selection");
        compareColor(field.selectedTextColor, "white", "selected text");
        mouseDoubleClickSequence(field, 16, 12);
        compare(field.selectedText, "Work");
        field.deselect();
        mousePress(field, 8, 12);
        mouseMove(field, 60, 12);
        mouseMove(field, 199, 12);
        mouseRelease(field, 199, 12);
        compare(field.selectedText, "Work and play");
    }
    function test_theTabKeySelectsAllOfIt_data() {
        return [
            {tag: "Tab", reason: Qt.TabFocusReason, selected: "Work and play"},
            {tag: "Shift-Tab", reason: Qt.BacktabFocusReason, selected: "Work and play"},
            {tag: "something else", reason: Qt.OtherFocusReason, selected: ""}
        ];
    }
    function test_theTabKeySelectsAllOfIt(data) {
        const field = show(view, {text: "Work and play"});
        field.forceActiveFocus(data.reason);
        compare(field.selectedText, data.selected);
        if (data.selected !== "")
            compare(field.cursorPosition, 0); // what is seen of a long text is its beginning
    }
    function test_mirroredItBeginsOnTheRight() {
        const field = show(view, {});
        field.LayoutMirroring.enabled = true;
        field.text = "Work"; // whatever its script
        compare(field.cursorRectangle.x, 192);
        field.cursorPosition = 0;
        verify(Math.abs(field.cursorRectangle.x - (192 - field.contentWidth)) < 1);
        field.clear();
        compare(field.cursorRectangle.x, 192);
    }
    function test_returnAccepts() {
        const field = show(view, {text: "Work"});
        acceptances.target = field;
        acceptances.clear();
        field.forceActiveFocus();
        keyClick(Qt.Key_Return);
        compare(acceptances.count, 1);
    }
    function test_assistiveProgramsAreToldOfIt() {
        const field = show(view, {text: "Work"});
        const told = mac.told(field);
        compare([told.role, told.name, told.value], ["EditableText", "Search for Apps", "Work"]);
    }
    function test_aLongTextStaysInside() {
        const field = show(view, {text: "A text with so many words that not all of them can be seen at once"});
        field.forceActiveFocus();
        keyClick(Qt.Key_End);
        verify(field.cursorRectangle.right <= 200 - 7);
        keyClick(Qt.Key_Home);
        compare(field.cursorRectangle.x, 8);
        compareColor(seen(test, 10 + 201 + 3, 22), "white", "beside it");
    }
}
