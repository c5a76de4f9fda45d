import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "Symbol"

    Component {
        id: view

        Symbol {
            size: 40
        }
    }

    // How much of the item is drawn on.
    function ink(symbol) {
        const picture = grabImage(symbol);
        let sum = 0;
        for (let x = 0; x < symbol.width; ++x) {
            for (let y = 0; y < symbol.height; ++y)
                sum += 1 - picture.pixel(x, y).r;
        }
        return sum;
    }

    function test_isDrawnInItsColour_data() {
        return [
            {tag: "light", isDark: false, color: "#262626"}, // 85 % on white
            {tag: "dark", isDark: true, color: "white"}
        ];
    }
    function test_isDrawnInItsColour(data) {
        if (data.isDark)
            mac.makeDark();
        const symbol = show(view, {name: "folder.fill"});
        compareSeen(symbol, symbol.width / 2, symbol.height / 2, data.color, "as a text");
        symbol.color = "#C00000";
        compareSeen(symbol, symbol.width / 2, symbol.height / 2, "#C00000", "of its own");
    }
    function test_aSecondColourIsBehindTheMark() {
        const symbol = show(view, {name: "xmark.circle.fill", color: "#00FF00", secondaryColor: "#0000FF"});
        const middle = symbol.width / 2;
        compareSeen(symbol, middle, middle, "#00FF00", "mark");
        compareSeen(symbol, middle, middle - 14, "#0000FF", "disc");
        symbol.secondaryColor = "transparent";
        verify(!Qt.colorEqual(seen(symbol, middle, middle - 14), "#0000FF"));
    }
    function test_aHeavierOneHasMoreInk() {
        const symbol = show(view, {name: "xmark", color: "black"});
        let before = ink(symbol);
        for (const weight of [Font.Medium, Font.DemiBold, Font.Black]) {
            symbol.weight = weight;
            const now = ink(symbol);
            verify(now > before * 1.03, `${weight}: ${now} after ${before}`);
            before = now;
        }
    }
    function test_growsWithItsSize() {
        const symbol = show(view, {name: "folder.fill", color: "black", size: 20});
        const before = ink(symbol);
        const width = symbol.width;
        symbol.size = 40;
        fuzzyCompare(symbol.width, 2 * width, 2);
        fuzzyCompare(ink(symbol), 4 * before, before / 2);
    }
    function test_staysInsideItsBox_data() {
        return ["gear", "cloud.fill", "gamecontroller.fill", "square.stack.3d.up", "exclamationmark.triangle.fill"]
            .map(name => ({tag: name}));
    }
    function test_staysInsideItsBox(data) {
        const symbol = show(view, {name: data.tag, color: "black", x: 40, y: 40});
        const picture = grabImage(test);
        for (let i = -2; i < symbol.width + 2; ++i) {
            for (const j of [-1, symbol.width]) {
                verify(picture.pixel(40 + i, 40 + j).r > 0.98, `${i}, ${j}`);
                verify(picture.pixel(40 + j, 40 + i).r > 0.98, `${j}, ${i}`);
            }
        }
        verify(ink(symbol) > 100);
    }
}
