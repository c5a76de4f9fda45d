import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "UpdateAvailableBanner"

    Component {
        id: view

        UpdateAvailableBanner {
            width: 640
            version: "7.5"
        }
    }
    SignalSpy {
        id: downloads
        signalName: "downloadRequested"
    }
    SignalSpy {
        id: dismissals
        signalName: "dismissed"
    }

    function shown(values) {
        const strip = show(view, values);
        for (const spy of [downloads, dismissals]) {
            spy.target = strip;
            spy.clear();
        }
        return strip;
    }
    function download(strip) {
        return part(strip, part => part instanceof PushButton);
    }
    function dismiss(strip) {
        return part(strip, part => part instanceof SymbolButton);
    }

    function test_namesTheVersion() {
        const strip = shown({});
        const title = textOf(strip, "Nestlet Companion 7.5 available");
        compareFont(title.font, 11, Font.DemiBold);
        strip.version = "8 & <b>9</b>"; // as it is
        compare(title.text, "Nestlet Companion 8 & <b>9</b> available");
        compare(title.textFormat, Text.PlainText);
        compare(mac.told(strip).name, title.text);
    }
    function test_offersInBlue_data() {
        return [
            {tag: "light", isDark: false, blue: "#007AFF", ground: "white"},
            {tag: "dark", isDark: true, blue: "#0A84FF", ground: "#282828"}
        ];
    }
    function test_offersInBlue(data) {
        if (data.isDark)
            mac.makeDark();
        const strip = shown({});
        const symbol = symbolOf(strip, "arrow.down.circle.fill");
        compare(symbol.size, 18);
        compareColor(symbol.color, data.blue, "symbol");
        compareSeen(strip, 635, 5, over(Theme.faded(Qt.color(data.blue), 0.08), data.ground), "ground");
    }
    function test_theControlsAreAtTheEnd() {
        const strip = shown({});
        const cross = symbolOf(dismiss(strip), "xmark");
        verify(download(strip).isDefault);
        compare(download(strip).text, "Download");
        compare(cross.size, 11);
        compare(cross.weight, Font.Medium);
        compareColor(cross.color, Theme.secondary, "cross");
        compare(place(dismiss(strip), strip).right, 640 - 16);
        compare(place(download(strip), strip).right, place(dismiss(strip), strip).left - 12);
        strip.LayoutMirroring.enabled = true;
        strip.LayoutMirroring.childrenInherit = true;
        compare(place(dismiss(strip), strip).left, 16);
        compare(place(symbolOf(strip, "arrow.down.circle.fill"), strip).right, 640 - 16);
    }
    function test_eachControlDoesItsOwn() {
        const strip = shown({});
        mouseClick(download(strip));
        compare([downloads.count, dismissals.count], [1, 0]);
        mouseClick(dismiss(strip));
        compare([downloads.count, dismissals.count], [1, 1]);
    }
    function test_theKeyboardReachesBoth() {
        const strip = shown({});
        download(strip).forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        keyClick(Qt.Key_Tab);
        verify(dismiss(strip).activeFocus);
        keyClick(Qt.Key_Space);
        compare([downloads.count, dismissals.count], [1, 1]);
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(download(strip).activeFocus);
    }
    function test_textsWithoutRoomStopBeforeTheControls() {
        const strip = shown({width: 320});
        const title = textOf(strip, "Nestlet Companion 7.5 available");
        verify(title.truncated);
        compare(place(title, strip).right, place(download(strip), strip).left - 12);
        compare(strip.height, shown({}).height);
    }
    function test_theCrossIsNamed() {
        const strip = shown({});
        compare(mac.told(dismiss(strip)).name, "Dismiss");
        compare(mac.told(dismiss(strip)).role, "Button");
    }
}
