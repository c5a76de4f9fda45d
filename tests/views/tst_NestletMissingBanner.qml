import QtQuick
import QtQuick.Templates as T
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "NestletMissingBanner"

    readonly property string title: "Nestlet not found"
    readonly property string text: "Install Nestlet first. Companion needs it to generate and launch Dock folders."

    Component {
        id: view

        NestletMissingBanner {
            width: 640
        }
    }

    function test_warnsInOrange_data() {
        return [
            {tag: "light", isDark: false, orange: "#FF9500", ground: "white"},
            {tag: "dark", isDark: true, orange: "#FF9F0A", ground: "#282828"}
        ];
    }
    function test_warnsInOrange(data) {
        if (data.isDark)
            mac.makeDark();
        const strip = show(view, {});
        const symbol = symbolOf(strip, "exclamationmark.triangle.fill");
        compare(symbol.size, 18);
        compare(symbol.weight, Font.Medium);
        compareColor(symbol.color, data.orange, "symbol");
        compareSeen(strip, 630, 5, over(Theme.faded(Qt.color(data.orange), 0.1), data.ground), "ground");
    }
    function test_theTitleIsOverTheText() {
        const strip = show(view, {});
        const symbol = symbolOf(strip, "exclamationmark.triangle.fill");
        const title = textOf(strip, test.title);
        const text = textOf(strip, test.text);
        compareFont(title.font, 11, Font.DemiBold);
        compareColor(title.color, Theme.primary, "title");
        compareFont(text.font, 10, Font.Normal);
        compareColor(text.color, Theme.secondary, "text");
        compare(place(symbol, strip).x, 16);
        compare(place(title, strip).x, 16 + symbol.width + 12);
        compare(place(title, strip).y, 10);
        compare(place(text, strip).y, place(title, strip).bottom + 2);
        compare(place(text, strip).bottom, strip.height - 10);
    }
    function test_aLineIsUnderIt() {
        const strip = show(view, {});
        const ground = seen(strip, 600, strip.height - 2);
        compareSeen(strip, 0, strip.height - 1, over(Theme.separator, ground), "line");
        compareSeen(strip, 639, strip.height - 1, over(Theme.separator, ground), "line");
        compareColor(ground, seen(strip, 600, 2), "no second one");
    }
    function test_hasNoControls() {
        const strip = show(view, {});
        verify(!part(strip, part => part instanceof T.AbstractButton));
        compare(mac.told(strip).role, "Grouping");
    }
    function test_whatDoesNotFitIsInATooltip() {
        const strip = show(view, {width: 240});
        const text = textOf(strip, test.text);
        verify(text.truncated);
        verify(place(text, strip).right <= 240 - 16);
        mouseMove(text, 20, 4);
        tryVerify(() => text.parent.HelpTag.isShown);
        compare(text.parent.HelpTag.text, test.text);
        strip.width = 640;
        verify(!text.parent.HelpTag.isShown);
    }
}
