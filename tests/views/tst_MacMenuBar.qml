import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "MacMenuBar"

    Component {
        id: menus

        MacMenuBar {}
    }
    Component {
        id: view

        TextInput {
            width: 120
            text: "Work"
        }
    }
    SignalSpy {
        id: newFolders
        signalName: "newFolderRequested"
    }

    function made(values) {
        const bar = createTemporaryObject(menus, test, values);
        verify(bar);
        return bar;
    }
    function all(objects) {
        const found = [];
        for (let i = 0; i < objects.length; ++i)
            found.push(objects[i]);
        return found;
    }
    function entries(bar, title) {
        return all(all(bar.menus).find(menu => menu.title === title).items);
    }
    function entry(bar, title, text) {
        return entries(bar, title).find(item => item.text === text);
    }

    function test_hasTheMenusOfAMac() {
        const bar = made({});
        compare(all(bar.menus).map(menu => menu.title), ["File", "Edit", "Window"]);
        const items = all(bar.menus).reduce((found, menu) => found.concat(all(menu.items)), []);
        const shortcuts = items.map(item => item.shortcut).filter(shortcut => shortcut !== undefined);
        compare(shortcuts.length, 9);
        compare(new Set(shortcuts).size, shortcuts.length);
    }
    function test_editsTheTextThatHasTheKeyboard() {
        const field = show(view, {});
        const bar = made({});
        bar.focusItem = Qt.binding(() => test.Window.activeFocusItem);
        const edit = text => entry(bar, "Edit", text);
        verify(!edit("Select All").enabled);
        field.forceActiveFocus();
        verify(!edit("Copy").enabled);
        edit("Select All").triggered();
        compare(field.selectedText, "Work");
        verify(edit("Copy").enabled);
        edit("Cut").triggered();
        compare(field.text, "");
        verify(!edit("Cut").enabled);
        edit("Undo").triggered();
        compare(field.text, "Work");
        edit("Redo").triggered();
        compare(field.text, "");
        tryVerify(() => edit("Paste").enabled);
        edit("Paste").triggered();
        compare(field.text, "Work");
        field.focus = false;
        verify(!edit("Undo").enabled);
    }
    function test_makesNoFolderBehindADialog() {
        const bar = made({isBlocked: true});
        const item = entry(bar, "File", "New Dock Folder");
        verify(!item.enabled);
        bar.isBlocked = false;
        verify(item.enabled);
        newFolders.target = bar;
        newFolders.clear();
        item.triggered();
        compare(newFolders.count, 1);
    }
}
