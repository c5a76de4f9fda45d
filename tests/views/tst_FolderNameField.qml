import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    readonly property string longName: "A folder with a name of many words"

    name: "FolderNameField"

    Component {
        id: view

        FolderNameField {
            x: 10
            y: 10
        }
    }
    SignalSpy {
        id: ends
        signalName: "editingEnded"
    }
    SignalSpy {
        id: cancellations
        signalName: "editingCancelled"
    }

    function shown(values) {
        const field = show(view, values);
        for (const spy of [ends, cancellations]) {
            spy.target = field;
            spy.clear();
        }
        return field;
    }

    function test_isATitle() {
        const field = shown({text: "Work"});
        compare(field.width, 180);
        compareFont(field.font, 22, Font.DemiBold);
        compareColor(field.color, Theme.primary, "text");
        compareColor(field.background.color, Theme.faded(Theme.secondary, 0.1), "ground");
        compare(field.placeholderText, "Folder name");
        compare(textOf(field, "Work"), null); // nothing but the field itself
    }
    function test_aLongNameEndsInDotsUntilItIsEdited() {
        const field = shown({text: longName});
        const name = textOf(field, longName);
        verify(name.truncated);
        compareFont(name.font, 22, Font.DemiBold);
        compare(place(name, field).x, 10);
        compare(place(name, field).right, 170);
        compareColor(field.color, "transparent", "field");
        mouseMove(field, 90, 18);
        tryVerify(() => name.HelpTag.isShown);
        compare(name.HelpTag.text, longName);
        mouseClick(field, 24, 18);
        verify(field.activeFocus);
        compare(field.cursorPosition, 1); // behind the letter that was clicked
        verify(!name.visible);
        verify(!name.HelpTag.isShown);
        compareColor(field.color, Theme.primary, "field");
        test.forceActiveFocus();
        verify(name.visible);
        compareColor(field.color, "transparent", "field");
        field.text = "Work";
        verify(!name.visible);
        compareColor(field.color, Theme.primary, "field");
    }
    function test_tellsOfTheEndOfEditing() {
        const field = shown({text: "Work"});
        field.forceActiveFocus();
        compare(ends.count, 0);
        keyClick(Qt.Key_Escape);
        compare(cancellations.count, 1);
        test.forceActiveFocus();
        compare(ends.count, 1);
    }
    function test_assistiveProgramsAreToldOfAllOfIt() {
        const told = mac.told(shown({text: longName}));
        compare([told.role, told.name, told.value], ["EditableText", "Folder name", longName]);
    }
}
