import QtQuick
import QtQuick.Controls.Basic

/// One item of a folder, with the button that takes it out.
ItemDelegate {
    id: root

    required property string itemID
    required property string name
    required property string path
    required property bool isLocked
    signal removeRequested

    height: 32
    padding: 0
    Accessible.role: Accessible.ListItem
    Accessible.name: root.name
    Accessible.description: root.path
    Keys.onDeletePressed: root.requestRemoval()
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Backspace) {
            root.requestRemoval();
            event.accepted = true;
        }
    }

    function requestRemoval() {
        if (!root.isLocked)
            root.removeRequested();
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.primary
        opacity: root.hovered || root.activeFocus ? 0.06 : 0
    }

    contentItem: Item { // qmllint disable deferred-property-id
        Text {
            id: nameText
            anchors.left: parent.left
            anchors.leftMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, parent.width * 0.45)
            text: root.name
            textFormat: Text.PlainText
            font.family: Theme.fontFamily
            font.pixelSize: Theme.bodySize
            color: Theme.primary
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        Text {
            anchors.left: nameText.right
            anchors.leftMargin: 8
            anchors.right: removeButton.left
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            text: root.path
            textFormat: Text.PlainText
            font.family: Theme.fontFamily
            font.pixelSize: Theme.subheadlineSize
            color: Theme.secondary
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }

        SymbolButton {
            id: removeButton
            anchors.right: parent.right
            anchors.rightMargin: 2
            anchors.verticalCenter: parent.verticalCenter
            visible: !root.isLocked
            symbol: "×"
            text: qsTr("Remove %1").arg(root.name)
            onClicked: root.requestRemoval()
        }
    }
}
