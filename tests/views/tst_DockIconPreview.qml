import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "DockIconPreview"

    Component {
        id: view

        DockIconPreview {
            x: 20
            y: 20
            size: 150
            folderID: "F"
            accentColorHex: ""
            iconSymbol: ""
            pictureSource: ""
            previewURLs: []
            previewColumns: 2
        }
    }

    function urls(count) {
        const urls = [];
        for (let i = 0; i < count; ++i) {
            urls.push(`file:///Applications/${i}.app/`);
            mac.setIcon(urls[i], colorOf(i));
        }
        return urls;
    }
    function colorOf(index) {
        return `#${"0123456789ABCDEF"[index]}000A0`;
    }

    function test_everythingGrowsWithItsSize_data() {
        return [{tag: "75", size: 75}, {tag: "96", size: 96}, {tag: "150", size: 150}];
    }
    function test_everythingGrowsWithItsSize(data) {
        const icon = show(view, {size: data.size, iconSymbol: "star.fill"});
        const symbol = symbolOf(icon, "star.fill");
        compare(Qt.size(icon.width, icon.height), Qt.size(data.size, data.size));
        fuzzyCompare(icon.radius, data.size * 0.22, 0.01);
        compare(symbol.size, data.size / 2);
        fuzzyCompare(place(symbol, icon).x + symbol.width / 2, data.size / 2, 0.51);
        fuzzyCompare(place(symbol, icon).y + symbol.height / 2, data.size / 2, 0.51);
    }
    function test_theSymbolIsWhiteOnTheColour() {
        const icon = show(view, {iconSymbol: "circle.fill", accentColorHex: "#4F83D3"});
        compareColor(symbolOf(icon, "circle.fill").color, "white", "symbol");
        compareSeen(test, 95, 20, "#4F83D3", "upper edge");
        icon.iconSymbol = "";
        compare(symbolOf(icon, "folder.fill").opacity, 0.65);
    }
    function test_theFirstItemsFillTheGridByRows_data() {
        return [{tag: "two columns", columns: 2}, {tag: "three", columns: 3}, {tag: "four", columns: 4}];
    }
    function test_theFirstItemsFillTheGridByRows(data) {
        const cells = data.columns * data.columns;
        const icon = show(view, {previewURLs: urls(16), previewColumns: data.columns, accentColorHex: "#000000"});
        const side = 150 * 0.76 / data.columns;
        const middle = index => 20 + 18 + (index + 0.5) * side;
        tryVerify(() => isSeen(test, middle(0), middle(0), colorOf(0)));
        for (let i = 0; i < cells; ++i)
            compareSeen(test, middle(i % data.columns), middle(Math.floor(i / data.columns)), colorOf(i), `cell ${i}`);
        compareColor(seen(test, 20 + 75, 20 + 8), "black", "margin");
    }
    function test_turnsToWhatTheFolderHas() {
        const icon = show(view, {});
        verify(symbolOf(icon, "folder.fill"));
        icon.previewURLs = urls(1);
        verify(!symbolOf(icon, "folder.fill"));
        icon.iconSymbol = "globe";
        verify(symbolOf(icon, "globe"));
        icon.pictureSource = mac.picture("#00A000");
        tryVerify(() => isSeen(test, 95, 95, "#00A000"));
        verify(!symbolOf(icon, "globe"));
        icon.pictureSource = "";
        verify(symbolOf(icon, "globe"));
    }
    function test_aPictureHasTheCornersOfTheGround() {
        show(view, {pictureSource: mac.picture("#00A000")});
        tryVerify(() => isSeen(test, 95, 95, "#00A000"));
        compareColor(seen(test, 20 + 6, 20 + 6), "white", "corner");
        compareColor(seen(test, 20 + 12, 20 + 12), "#00A000", "inside it");
    }
    function test_isDecoration() {
        compare(mac.told(show(view, {})), {});
    }
}
