import QtQuick
import Nestlet.Companion

/// The button that puts a folder into the Dock or builds its Dock app anew.
PlainButton {
    id: root

    required property bool isInstalled
    required property bool isBusy
    property bool hadFocus: false

    text: root.isBusy ? (root.isInstalled ? qsTr("Updating Dock") : qsTr("Adding to Dock"))
                      : (root.isInstalled ? qsTr("Update Dock") : qsTr("Show in Dock"))
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    leftPadding: 20
    rightPadding: 20
    topPadding: 10
    bottomPadding: 10
    font: Theme.bodyMedium
    // A disabled control loses the focus: it gets it back, unless it has gone elsewhere meanwhile.
    onIsBusyChanged: {
        if (root.isBusy)
            root.hadFocus = root.activeFocus;
        root.enabled = !root.isBusy;
        if (root.enabled && root.hadFocus && root.Window.activeFocusItem === root.Window.contentItem)
            root.forceActiveFocus(Qt.OtherFocusReason);
    }
    Component.onCompleted: root.enabled = !root.isBusy

    contentItem: Row {
        spacing: 8
        opacity: root.isBusy ? 0.6 : 1

        Item {
            anchors.verticalCenter: parent.verticalCenter
            width: 8
            height: 8

            Rectangle {
                anchors.fill: parent
                radius: 4
                visible: !root.isBusy
                color: root.isInstalled ? Theme.green : Theme.faded(Theme.secondary, 0.5)
            }

            Loader {
                anchors.centerIn: parent
                active: root.isBusy
                source: "ProgressSpinner.qml"
                onLoaded: item.size = 12 // qmllint disable missing-property
            }
        }

        CompanionText {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            font: root.font
        }
    }

    background: DockButtonStyle {
        isPressed: root.down
        isHovered: root.hovered
        hasFocusRing: root.showsFocus
    }
}
