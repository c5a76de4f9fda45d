import QtQuick
import Nestlet.Companion

/// What stands in the grid of a folder without items.
Item {
    id: root

    required property bool isDropTargeted

    height: hints.height + 48
    Accessible.role: Accessible.StaticText
    Accessible.name: line.text
    Accessible.description: hint.text

    Column {
        id: hints
        anchors.centerIn: parent
        spacing: 8

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: root.isDropTargeted ? "arrow.down.circle.fill" : "tray"
            size: 22
            color: root.isDropTargeted ? Theme.accent : Theme.tertiary
        }

        CompanionText {
            id: line
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.isDropTargeted ? qsTr("Release to Add") : qsTr("No items yet")
            font: Theme.callout
            color: root.isDropTargeted ? Theme.accentInk : Theme.secondary
        }

        CompanionText {
            id: hint
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Click \"Add Apps\" or drag apps here.")
            font: Theme.caption
            color: Theme.tertiaryText
        }
    }
}
