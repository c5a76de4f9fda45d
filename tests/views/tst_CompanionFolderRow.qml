import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "CompanionFolderRow"

    Component {
        id: view

        CompanionFolderRow {
            width: 220
            index: 0
            folderID: "F"
            name: "Work"
            status: "Not added yet"
            isLocked: false
            isInstalled: false
            accentColorHex: ""
            iconSymbol: ""
            pictureSource: ""
            previewURLs: []
            previewColumns: 2
            isSelected: false
            isCurrent: false
            listHasFocus: false
            receiver: mac.model
        }
    }
    SignalSpy {
        id: clicks
        signalName: "clicked"
    }
    SignalSpy {
        id: moves
        signalName: "moveRequested"
    }

    function shown(values) {
        const row = show(view, values);
        for (const spy of [clicks, moves]) {
            spy.target = row;
            spy.clear();
        }
        return row;
    }
    function thumbnail(row) {
        return part(row, part => part instanceof SidebarFolderThumbnail);
    }

    function test_theTextsStandBesideTheThumbnail() {
        const row = shown({});
        const name = textOf(row, "Work");
        const caption = textOf(row, "Not added yet");
        compare(row.height, 52);
        compare(place(thumbnail(row), row), Qt.rect(18, 8, 36, 36));
        compare(thumbnail(row).radius, 8);
        compareFont(name.font, 13, Font.Bold);
        compareFont(caption.font, 10, Font.Normal);
        compare(place(name, row).x, 62);
        compare(place(caption, row).x, 62);
        compare(place(caption, row).y, place(name, row).bottom + 2);
        verify(place(caption, row).right <= 220 - 10);
    }
    function test_theCaptionTellsWhereTheFolderStands_data() {
        return [
            {tag: "neither", isInstalled: false, isLocked: false, status: "Not added yet", ink: "secondary"},
            {tag: "installed", isInstalled: true, isLocked: false, status: "Ready in Dock", ink: "blueInk"},
            {tag: "locked", isInstalled: false, isLocked: true, status: "Belongs to the App Store app", ink: "secondary"},
            {tag: "locked and installed", isInstalled: true, isLocked: true, status: "Belongs to the App Store app", ink: "secondary"}
        ];
    }
    function test_theCaptionTellsWhereTheFolderStands(data) {
        const row = shown({status: data.status, isInstalled: data.isInstalled, isLocked: data.isLocked});
        compareColor(textOf(row, data.status).color, Theme[data.ink], "caption");
        compare(symbolOf(row, "lock.fill") !== null, data.isLocked);
        compare(mac.told(row).description, data.status);
        mac.makeDark();
        compareColor(textOf(row, data.status).color, Theme[data.ink], "caption in the dark");
    }
    function test_aNameIsOneLine() {
        const name = textOf(shown({name: "Two\nlines"}), "Two\nlines");
        compare(name.lineCount, 1);
        verify(name.truncated);
    }
    function test_blueIsBlue() {
        const row = shown({status: "Ready in Dock", isInstalled: true});
        const ink = textOf(row, "Ready in Dock").color;
        verify(ink.b > 0.7 && ink.r < 0.3, ink);
    }
    function test_theSelectionIsAsStrongAsTheList_data() {
        return [
            {tag: "with the focus", listHasFocus: true, ground: "accentFill", ink: "accentText", caption: "accentText"},
            {tag: "without", listHasFocus: false, ground: "selectedRow", ink: "primary", caption: "secondary"}
        ];
    }
    function test_theSelectionIsAsStrongAsTheList(data) {
        const row = shown({isSelected: true, listHasFocus: data.listHasFocus});
        const ground = over(Theme[data.ground], "white");
        compareSeen(row, 200, 26, ground, "ground");
        compareSeen(row, 11, 26, ground, "its leading edge");
        compareColor(seen(row, 8, 26), "white", "beside it");
        compareColor(seen(row, 212, 26), "white", "beside it");
        compareColor(seen(row, 10, 0), "white", "round corner");
        compareColor(textOf(row, "Work").color, Theme[data.ink], "name");
        compareColor(textOf(row, "Not added yet").color, Theme[data.caption], "caption");
        row.isSelected = false;
        compareColor(seen(row, 200, 26), "white", "no longer selected");
        compareColor(textOf(row, "Work").color, Theme.primary, "no longer selected");
    }
    function test_theRingIsForTheKeyboard() {
        const row = shown({isCurrent: true});
        keyClick(Qt.Key_Shift);
        const ring = part(row, part => part instanceof FocusRing);
        compare(place(ring, row).x, 7);
        compare(place(ring, row).right, 213);
        mouseClick(row);
        verify(!hasRing(row));
        row.isCurrent = false;
        keyClick(Qt.Key_Shift);
        verify(!hasRing(row));
    }
    function test_isClicked() {
        const row = shown({});
        mouseClick(row);
        compare(clicks.count, 1);
        verify(!row.activeFocus); // that stays the list's
        mac.act(row, "Press");
        compare(clicks.count, 2);
    }
    function test_assistiveProgramsAreToldOfIt() {
        const row = shown({isSelected: true});
        const told = mac.told(row);
        compare(told.role, "ListItem");
        compare(told.name, "Work");
        compare(told.states, ["selectable", "selected"]);
        mac.act(row, "Increase");
        mac.act(row, "Decrease");
        compare(words(moves), [1, -1]);
    }
    function test_outOfUseItIsNotAnnounced() {
        const row = shown({isPooled: true});
        compare(mac.told(row), {});
        row.isPooled = false;
        compare(mac.told(row).name, "Work");
    }
    function test_aLongNameEndsInDotsAndHasATooltip() {
        const row = shown({name: "A folder with a name of many words"});
        const name = textOf(row, row.name);
        verify(name.truncated);
        compare(name.lineCount, 1);
        mouseMove(row, 100, 20);
        tryVerify(() => row.HelpTag.isShown);
        compare(row.HelpTag.text, row.name);
        row.name = "Work";
        verify(!row.HelpTag.isShown);
    }
    function test_aLongCaptionTakesTwoLines() {
        const row = shown({status: "Belongs to the App Store app and to nobody else"});
        const caption = textOf(row, row.status);
        compare(caption.lineCount, 2);
        verify(place(caption, row).bottom <= 52);
        verify(place(textOf(row, "Work"), row).top >= 0);
    }
    function test_showsWhatTheFolderLooksLike() {
        const row = shown({accentColorHex: "#4F83D3", iconSymbol: "airplane"});
        verify(symbolOf(row, "airplane"));
        compareColor(thumbnail(row).tint, "#4F83D3", "tint");
        row.iconSymbol = "globe"; // another folder's
        row.accentColorHex = "";
        verify(symbolOf(row, "globe"));
        compareColor(thumbnail(row).tint, Theme.grey(0.68), "no tint");
    }
}
