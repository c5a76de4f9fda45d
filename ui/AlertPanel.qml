import QtQuick
import QtQuick.Templates as T

/// An alert over the dimmed window: a title, a message and one or two buttons, the last of which only
/// dismisses.
T.Dialog {
    id: root

    property string message
    property string actionText
    property string dismissText
    readonly property bool hasAction: root.actionText !== ""
    property bool isConfirmed: false
    signal acted

    anchors.centerIn: T.Overlay.overlay
    width: 260
    implicitHeight: contentHeight + topPadding + bottomPadding
    modal: true
    padding: 16
    closePolicy: T.Popup.CloseOnEscape
    // Not before: what is done may take away whom the alert belongs to, and then it could neither fade
    // nor give the focus back.
    onClosed: {
        if (root.isConfirmed)
            root.acted();
    }
    onOpened: dismissButton.forceActiveFocus(Qt.PopupFocusReason)

    enter: SheetEnter {}
    exit: SheetExit {}

    T.Overlay.modal: SheetDimming {}

    background: Item { // qmllint disable deferred-property-id
        SheetShadow {}

        Rectangle {
            anchors.fill: parent
            radius: Theme.sheetRadius
            color: Theme.sheet
            border.width: 1
            border.color: Theme.separator
        }
    }

    contentItem: Column { // qmllint disable deferred-property-id
        spacing: 8
        Keys.forwardTo: [scroll]

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "exclamationmark.triangle.fill"
            size: 36
            color: Theme.orange
        }

        CompanionText {
            width: parent.width
            text: root.title
            font: Theme.headline
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: root.title
        }

        ScrollArea {
            id: scroll
            objectName: "alertScroll"
            width: parent.width
            height: Math.min(contentHeight, 320)
            contentHeight: messageText.height

            CompanionText {
                id: messageText
                width: parent.width
                text: root.message
                font: Theme.subheadline
                elide: Text.ElideNone
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                Accessible.ignored: false
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
                root.isConfirmed = true;
                root.close();
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
