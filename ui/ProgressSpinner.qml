import QtQuick

/// Spokes that turn while something is going on. To be there only as long as it is: it keeps the
/// program awake.
Item {
    id: root

    property real size: 16
    readonly property int spokes: 8
    property int turn: 0

    implicitWidth: root.size
    implicitHeight: root.size
    Accessible.ignored: true

    Repeater {
        model: root.spokes

        Item {
            id: spoke

            required property int index

            anchors.centerIn: parent
            width: root.size
            height: root.size
            rotation: spoke.index * 360 / root.spokes
            opacity: 1 - 0.1 * ((root.turn + root.spokes - spoke.index) % root.spokes)

            Rectangle {
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.max(1.5, root.size * 0.1)
                height: root.size * 0.3
                radius: width / 2
                color: Theme.secondary
                antialiasing: true
            }
        }
    }

    Timer {
        running: root.visible && !Theme.reducesMotion
        interval: 100
        repeat: true
        onTriggered: root.turn = (root.turn + 1) % root.spokes
    }
}
