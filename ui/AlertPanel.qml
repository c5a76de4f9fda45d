pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T

/// An alert over the dimmed window: a title, a message and one or two buttons, the last of which only
/// dismisses.
Dialog {
    id: root

    property string message
    property string actionText
    property string dismissText
    readonly property bool hasAction: root.actionText !== ""
    signal acted

    anchors.centerIn: T.Overlay.overlay
    width: 260
    modal: true
    padding: 16
    closePolicy: Popup.CloseOnEscape
    onOpened: dismissButton.forceActiveFocus(Qt.PopupFocusReason)

    header: null
    footer: null

    T.Overlay.modal: Rectangle {
        color: Theme.dimming
    }

    background: Rectangle {
        radius: Theme.cardRadius
        color: Theme.isDark ? "#323234" : "#F6F6F6"
        border.width: 1
        border.color: Theme.separator
    }

    contentItem: Column { // qmllint disable deferred-property-id
        spacing: 8

        Text {
            width: parent.width
            text: root.title
            font.family: Theme.fontFamily
            font.pixelSize: Theme.bodySize
            font.bold: true
            color: Theme.primary
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.StaticText
            Accessible.name: root.title
        }

        Flickable {
            width: parent.width
            height: Math.min(contentHeight, 320)
            contentHeight: messageText.height
            clip: true
            boundsBehavior: Flickable.StopAtBounds

            Text {
                id: messageText
                width: parent.width
                text: root.message
                textFormat: Text.PlainText
                font.family: Theme.fontFamily
                font.pixelSize: Theme.subheadlineSize
                color: Theme.primary
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                Accessible.role: Accessible.StaticText
                Accessible.name: root.message
            }
        }

        Item {
            width: 1
            height: 4
        }

        PushButton {
            width: parent.width
            visible: root.hasAction
            text: root.actionText
            isDestructive: true
            onClicked: {
                root.close();
                root.acted();
            }
        }

        PushButton {
            id: dismissButton
            width: parent.width
            text: root.dismissText
            isDefault: true
            onClicked: root.close()
        }
    }
}
