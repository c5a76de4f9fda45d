import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// A column that scrolls by wheel, bar and keyboard, as on a desktop: never by dragging what is in it.
/// What the keyboard reaches in it comes into view.
Flickable {
    id: root

    readonly property Item focusItem: Window.activeFocusItem
    readonly property real ringRoom: Theme.rowInset

    /// Scrolls as little as it takes to show a stretch of the content.
    function reveal(top: real, bottom: real) {
        const last = root.contentHeight - root.height;
        if (bottom > root.contentY + root.height)
            root.contentY = Math.min(bottom - root.height, last);
        if (top < root.contentY)
            root.contentY = Math.max(top, 0);
    }
    function holds(item: Item): bool {
        return item !== null && (item === root.contentItem || root.holds(item.parent));
    }
    function revealFocus() {
        if (!InputModality.isKeyboard || !root.holds(root.focusItem))
            return;
        const top = root.focusItem.mapToItem(root.contentItem, 0, 0).y;
        root.reveal(top - root.ringRoom, top + root.focusItem.height + root.ringRoom);
    }

    // A line, a page, or all the way. False: no key that scrolls.
    function scrollByKey(key: int): bool {
        const last = Math.max(0, root.contentHeight - root.height);
        const page = Math.max(root.line, root.height - root.line);
        const steps = new Map([[Qt.Key_Up, -root.line], [Qt.Key_Down, root.line], [Qt.Key_PageUp, -page],
                               [Qt.Key_PageDown, page], [Qt.Key_Home, -last], [Qt.Key_End, last]]);
        if (!steps.has(key) || last === 0)
            return false;
        root.contentY = Math.max(0, Math.min(last, root.contentY + steps.get(key)));
        return true;
    }

    readonly property int line: 40

    // A Mac's arrows belong to its keypad, as others' keys of a keypad do.
    Keys.onPressed: event => {
        const others = event.modifiers & (Qt.ShiftModifier | Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier);
        event.accepted = !others && root.scrollByKey(event.key);
    }
    clip: true
    contentWidth: width
    boundsBehavior: Flickable.StopAtBounds
    T.ScrollBar.vertical: CompanionScrollBar {}
    onFocusItemChanged: root.revealFocus()

    WheelScrolling {
        target: root
    }
}
