import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "MASFolderDetailView"

    Component {
        id: view

        MASFolderDetailView {
            width: 600
            height: 400
            model: mac.model
        }
    }

    function initTestCase() {
        mac.setIcon(mac.model.nestletURL, "#00A000");
    }
    function button(page) {
        return part(page, part => part instanceof PushButton);
    }

    function test_showsTheApplicationAndItsName() {
        const page = show(view, {});
        const icon = part(page, part => part instanceof FileIcon);
        compare(Qt.size(icon.width, icon.height), Qt.size(72, 72));
        compare(place(icon, page).x, 32);
        tryVerify(() => isSeen(icon, 36, 36, "#00A000"));
        const label = textOf(page, "Dock Name");
        const value = part(label.parent, part => part instanceof Text && part.text === "Nestlet");
        compareFont(label.font, 11, Font.Normal);
        compareColor(label.color, Theme.secondary, "label");
        compareFont(value.font, 13, Font.Normal);
        compareColor(value.color, Theme.primary, "value");
        compare(place(value, page).x, place(label, page).x);
        verify(place(value, page).top >= place(label, page).bottom);
        const told = mac.told(label.parent);
        compare([told.role, told.name, told.description], ["StaticText", "Dock Name", "Nestlet"]);
    }
    function test_opensNestlet() {
        const page = show(view, {});
        const open = button(page);
        verify(open.isDefault);
        compare(open.text, "Open Nestlet");
        compare(open.symbol, "arrow.up.right.square");
        const before = mac.opened.length;
        mouseClick(open);
        compare(mac.opened.length, before + 1);
        verify(mac.opened[before].endsWith("/Nestlet.app"), mac.opened[before]);
        open.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        compare(mac.opened.length, before + 2);
    }
    function test_everythingBeginsOnOneLine() {
        const page = show(view, {});
        const banner = part(page, part => part instanceof LockedFolderBanner);
        compare(place(banner, page).x, 32);
        compare(place(banner, page).right, 600 - 32);
        compare(place(button(page), page).x, 32);
        verify(place(button(page), page).top >= place(textOf(page, "Dock Name"), page).bottom + 20);
        verify(place(banner, page).top >= place(button(page), page).bottom + 20);
    }
    function test_scrollsWhereItHasNoRoom() {
        const page = show(view, {height: 200});
        const scroll = part(page, part => part instanceof ScrollArea);
        const banner = part(page, part => part instanceof LockedFolderBanner);
        verify(scroll.contentHeight > scroll.height);
        verify(place(banner, page).bottom > 200);
        mouseWheel(scroll, 100, 50, 0, -1200);
        tryVerify(() => place(banner, page).bottom <= 200);
        compare(place(scroll, page).top, 52); // under the header
    }
    function test_nothingCanBeEdited() {
        const page = show(view, {});
        verify(!part(page, part => part instanceof TextInput));
        verify(!part(page, part => part instanceof DockButton));
        compare(mac.told(page).role, "Pane");
        compare(mac.told(page).name, "Nestlet");
    }
}
