import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "LockedFolderBanner"

    readonly property string title: "Managed by App Store Nestlet"
    readonly property string text: "This folder is owned by the App Store version and cannot be edited here."

    Component {
        id: view

        LockedFolderBanner {
            width: 600
        }
    }

    function test_isAFaintRoundedGround_data() {
        return [{tag: "light", isDark: false, ground: "white"}, {tag: "dark", isDark: true, ground: "white"}];
    }
    function test_isAFaintRoundedGround(data) {
        if (data.isDark)
            mac.makeDark();
        const banner = show(view, {});
        compare(banner.radius, 8);
        compare(banner.border.width, 1);
        compareColor(banner.color, Theme.faded(Theme.secondary, 0.1), "ground");
        compareColor(banner.border.color, Theme.faded(Theme.secondary, 0.22), "outline");
        compareColor(seen(banner, 0, 0), "white", "round corner");
    }
    function test_theTextsStandBesideTheLock() {
        const banner = show(view, {});
        const lock = symbolOf(banner, "lock.fill");
        const title = textOf(banner, test.title);
        const text = textOf(banner, test.text);
        compare(lock.size, 14);
        compareColor(lock.color, Theme.secondary, "lock");
        compareFont(title.font, 11, Font.Medium);
        compareFont(text.font, 10, Font.Normal);
        compareColor(text.color, Theme.secondary, "text");
        compare(place(lock, banner).x, 12);
        compare(place(title, banner).x, 12 + lock.width + 10);
        compare(place(title, banner).y, 12);
        compare(place(text, banner).y, place(title, banner).bottom + 2);
        compare(banner.height, place(text, banner).bottom + 12);
    }
    function test_growsWhereTheTextHasNoRoom() {
        const banner = show(view, {width: 220});
        const text = textOf(banner, test.text);
        verify(text.lineCount > 1);
        verify(!text.truncated);
        verify(place(text, banner).right <= 220 - 12);
        compare(banner.height, place(text, banner).bottom + 12);
    }
    function test_assistiveProgramsAreToldInOne() {
        const told = mac.told(show(view, {}));
        compare(told.role, "Grouping");
        compare(told.name, test.title);
        compare(told.description, test.text);
    }
    function test_isMirrored() {
        const banner = show(view, {});
        banner.LayoutMirroring.enabled = true;
        banner.LayoutMirroring.childrenInherit = true;
        compare(place(symbolOf(banner, "lock.fill"), banner).right, 600 - 12);
        const title = textOf(banner, test.title);
        compare(title.effectiveHorizontalAlignment, Text.AlignRight);
    }
}
