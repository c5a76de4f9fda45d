import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// A column that scrolls by wheel, bar and keyboard, as on a desktop: never by dragging what is in it.
Flickable {
    id: root

    /// Scrolls as little as it takes to show a stretch of the content.
    function reveal(top: real, bottom: real) {
        const last = root.contentHeight - root.height;
        if (bottom > root.contentY + root.height)
            root.contentY = Math.min(bottom - root.height, last);
        if (top < root.contentY)
            root.contentY = Math.max(top, 0);
    }

    clip: true
    contentWidth: width
    boundsBehavior: Flickable.StopAtBounds
    ScrollBar.vertical: CompanionScrollBar {}

    WheelScrolling {
        target: root
    }
}
