import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "SidebarFolderThumbnail"

    Component {
        id: view

        SidebarFolderThumbnail {
            x: 20
            y: 20
            size: 36
            radius: 8
            folderID: "F"
            accentColorHex: ""
            iconSymbol: ""
            pictureSource: ""
            previewURLs: []
            previewColumns: 2
            isLocked: false
        }
    }

    function badge(thumbnail) {
        return part(thumbnail, part => part instanceof Rectangle && part.width === 16);
    }

    function test_isARoundedSquare() {
        const thumbnail = show(view, {});
        compare(Qt.size(thumbnail.width, thumbnail.height), Qt.size(36, 36));
        compare(thumbnail.radius, 8);
        for (const x of [20, 55])
            compareColor(seen(test, x, 20), "white", "corner");
        compareSeen(test, 38, 21, Qt.rgba(0.68, 0.68, 0.68, 1), "upper edge");
    }
    function test_theSymbolIsHalfAsLarge() {
        const symbol = symbolOf(show(view, {iconSymbol: "airplane"}), "airplane");
        compare(symbol.size, 18);
        compareColor(symbol.color, "white", "symbol");
    }
    function test_theLockIsInTheTrailingCorner() {
        const thumbnail = show(view, {isLocked: true});
        const lock = symbolOf(thumbnail, "lock.fill");
        compare(lock.size, 8);
        compare(place(badge(thumbnail), thumbnail), Qt.rect(23, 23, 16, 16)); // 3 over the edge
        compareSeen(test, 20 + 31, 20 + 24, "#8E8E93", "badge");
        thumbnail.LayoutMirroring.enabled = true;
        thumbnail.LayoutMirroring.childrenInherit = true;
        compare(place(badge(thumbnail), thumbnail), Qt.rect(-3, 23, 16, 16));
        thumbnail.isLocked = false;
        verify(!symbolOf(thumbnail, "lock.fill"));
    }
    function test_theGridHasAsManyColumnsAsThePanel_data() {
        return [{tag: "two", columns: 2}, {tag: "three", columns: 3}, {tag: "four", columns: 4}];
    }
    function test_theGridHasAsManyColumnsAsThePanel(data) {
        const urls = [];
        for (let i = 0; i < data.columns * data.columns; ++i) {
            urls.push(`file:///Applications/${i}.app/`);
            mac.setIcon(urls[i], i === data.columns ? "#A00000" : "#0000A0");
        }
        const thumbnail = show(view, {size: 200, previewColumns: data.columns, previewURLs: urls});
        const side = 200 * 0.76 / data.columns;
        const middle = index => 20 + 24 + (index + 0.5) * side;
        tryVerify(() => isSeen(test, middle(0), middle(1), "#A00000"));
        compareColor(seen(test, middle(0), middle(0)), "#0000A0", "the first row");
        compareColor(seen(test, middle(1), middle(1)), "#0000A0", "the second column");
    }
    function test_aPictureHasTheCornersOfTheGround() {
        const thumbnail = show(view, {pictureSource: mac.picture("#00A000")});
        tryVerify(() => isSeen(test, 38, 38, "#00A000"));
        for (const x of [20, 55]) {
            for (const y of [20, 55])
                compareColor(seen(test, x, y), "white", "corner");
        }
    }
    function test_isDecoration() {
        compare(mac.told(show(view, {isLocked: true})), {});
    }
}
