import QtQuick

/// How far the adding of all folders to the Dock is.
Item {
    id: root

    required property int done
    required property int total
    // What assistive programs ask a progress bar for
    readonly property real value: root.done
    readonly property real minimumValue: 0
    readonly property real maximumValue: root.total

    implicitHeight: Math.max(48, track.y + track.height + 15)
    Accessible.role: Accessible.ProgressBar
    Accessible.name: label.text

    Divider {
        width: parent.width
    }

    CompanionText {
        id: label
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.selectionInset + Theme.rowInset
        anchors.rightMargin: Theme.selectionInset + Theme.rowInset
        y: 11
        text: qsTr("Adding to Dock: %1 of %2").arg(Number(root.done).toLocaleString(Qt.locale(), "f", 0)).arg(Number(root.total).toLocaleString(Qt.locale(), "f", 0))
        font: Theme.captionMedium
        wrapMode: Text.Wrap
        maximumLineCount: 2
        color: Theme.secondary
    }

    Rectangle {
        id: track
        anchors.left: label.left
        anchors.right: label.right
        anchors.top: label.bottom
        anchors.topMargin: 6
        height: 4
        radius: 2
        color: Theme.quaternary

        Rectangle {
            anchors.left: parent.left
            width: root.total > 0 ? Math.max(height, track.width * root.done / root.total) : 0
            height: parent.height
            radius: 2
            color: Theme.accent

            Behavior on width {
                NumberAnimation {
                    duration: Theme.changeDuration
                    easing.type: Easing.OutQuad
                }
            }
        }
    }
}
