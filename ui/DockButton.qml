import QtQuick
import QtQuick.Controls.Basic

/// The button that puts a folder into the Dock or builds its Dock app anew.
Button {
    id: root

    required property bool isInstalled
    required property bool isBusy

    text: root.isInstalled ? qsTr("Update Dock") : qsTr("Show in Dock")
    enabled: !root.isBusy
    leftPadding: 20
    rightPadding: 20
    topPadding: 10
    bottomPadding: 10
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    font.family: Theme.fontFamily
    font.pixelSize: Theme.bodySize
    font.weight: Font.Medium
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    contentItem: Row {
        spacing: 8
        opacity: root.enabled ? 1 : 0.5

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 8
            height: 8
            radius: 4
            color: root.isInstalled ? Theme.green : Theme.faded(Theme.secondary, 0.5)
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            font: root.font
            color: Theme.primary
            Accessible.ignored: true
        }
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.control
        border.width: 1
        border.color: Theme.separator

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.primary
            opacity: root.down ? 0.12 : root.hovered ? 0.04 : 0
        }

        FocusRing {
            visible: root.visualFocus
        }
    }
}
