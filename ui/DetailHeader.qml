import QtQuick

/// The window's header row over the right column: a title, and controls at its end.
Item {
    id: root

    required property string title
    default property alias controls: controls.data

    height: Theme.headerHeight

    ElidedText {
        anchors.left: parent.left
        anchors.leftMargin: Theme.contentInset
        anchors.right: controls.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        text: root.title
        font: Theme.windowTitle
        Accessible.ignored: false
        Accessible.role: Accessible.Heading
        Accessible.name: root.title
    }

    Row {
        id: controls
        anchors.right: parent.right
        anchors.rightMargin: 20
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8
    }

    Divider {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
    }
}
