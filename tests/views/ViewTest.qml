import QtQuick
import QtTest
import Nestlet.Companion

/// What the tests of a view have: a place to show it in, and eyes for what it shows. A warning fails.
TestCase {
    id: root

    width: 640
    height: 480
    visible: true
    when: windowShown

    function init() {
        failOnWarning(/.*/);
        mac.reset();
        root.leave();
    }
    /// The view with these values, at the place's upper left corner.
    function show(view: Component, values: var): Item {
        const shown = createTemporaryObject(view, root, values);
        verify(shown);
        waitForRendering(shown);
        return shown;
    }
    /// Takes the pointer away from whatever is shown.
    function leave() {
        mouseMove(root, root.width - 1, root.height - 1);
    }

    /// The first part of an item that is to be seen and matches; null: there is none.
    function part(item: Item, matches: var): Item {
        if (!item.visible || item.opacity === 0)
            return null;
        if (matches(item))
            return item;
        for (let i = 0; i < item.children.length; ++i) {
            const found = root.part(item.children[i], matches);
            if (found)
                return found;
        }
        return null;
    }
    function textOf(item: Item, words: string): Text {
        return root.part(item, part => part instanceof Text && part.text === words);
    }
    function symbolOf(item: Item, name: string): Symbol {
        return root.part(item, part => part instanceof Symbol && part.name === name);
    }
    function hasRing(item: Item): bool {
        return root.part(item, part => part instanceof FocusRing) !== null;
    }
    /// Where a part is in an item.
    function place(part: Item, item: Item): rect {
        return part.mapToItem(item, 0, 0, part.width, part.height);
    }

    function compareColor(actual: color, expected: var, what: string) {
        compare(String(actual), String(Qt.color(expected)), what);
    }
    function compareFont(actual: font, size: int, weight: int) {
        compare(actual.pixelSize, size);
        compare(actual.weight, weight);
    }
    /// A colour as it is seen on another; within what rounding makes of it.
    function compareSeen(item: Item, x: real, y: real, expected: var, what: string) {
        const seen = root.seen(item, x, y);
        const wanted = Qt.color(expected);
        for (const part of ["r", "g", "b"])
            verify(Math.abs(seen[part] - wanted[part]) < 3 / 255, `${what}: ${seen} is not ${wanted}`);
    }
    function isSeen(item: Item, x: real, y: real, expected: var): bool {
        return String(root.seen(item, x, y)) === String(Qt.color(expected));
    }
    function seen(item: Item, x: real, y: real): color {
        const point = item.mapToItem(root, x, y);
        return grabImage(root).pixel(point.x, point.y);
    }
    function over(color: color, ground: var): color {
        return Contrast.over(color, ground);
    }
    /// What a signal said each time, in its first argument.
    function words(spy: SignalSpy): var {
        return spy.signalArguments.map(words => words[0]);
    }
}
