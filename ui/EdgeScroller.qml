import QtQuick

/// Scrolls while something is held near an edge of what is scrolled.
Timer {
    id: root

    required property Flickable flickable
    /// Where it is held, from the top of the visible part; NaN: nothing is held.
    property real position: NaN
    readonly property real edge: 44
    readonly property real first: root.flickable.originY - root.flickable.topMargin
    readonly property real last: Math.max(root.first, root.flickable.originY + root.flickable.contentHeight
                                                      + root.flickable.bottomMargin - root.flickable.height)
    readonly property int direction: root.position < root.edge && root.flickable.contentY > root.first
                                     ? -1 : root.position > root.flickable.height - root.edge
                                       && root.flickable.contentY < root.last ? 1 : 0

    interval: 16
    repeat: true
    running: root.direction !== 0
    onTriggered: root.flickable.contentY = Math.max(root.first, Math.min(root.last, root.flickable.contentY + 8 * root.direction))
}
