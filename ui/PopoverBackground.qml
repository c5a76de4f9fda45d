import QtQuick

/// The ground of a popover: a rounded panel with a pointer at its upper or lower edge.
Item {
    id: root

    property real pointerSize: 8
    /// Along the edge.
    property real pointerX: root.width / 2
    property bool isPointerOnTop: true

    Rectangle {
        anchors.fill: parent
        radius: Theme.contentRadius
        color: Theme.menu
        border.width: 1
        border.color: Theme.menuBorder
    }

    // Lies over the edge by the width of its line, and so leaves the panel open towards the pointer.
    Item {
        x: root.pointerX - width / 2
        y: root.isPointerOnTop ? 1 - height : root.height - 1
        width: 2 * root.pointerSize + 2
        height: root.pointerSize + 1
        clip: true

        Rectangle {
            x: (parent.width - width) / 2
            y: (root.isPointerOnTop ? parent.height : 0) - height / 2
            width: root.pointerSize * Math.SQRT2
            height: width
            rotation: 45
            antialiasing: true
            color: Theme.menu
            border.width: 1
            border.color: Theme.menuBorder
        }
    }
}
