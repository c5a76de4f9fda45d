import QtQuick

/// Tells why a folder cannot be edited.
Rectangle {
    id: root

    readonly property string title: qsTr("Managed by App Store Nestlet")
    readonly property string text: qsTr("This folder is owned by the App Store version and cannot be edited here.")

    implicitHeight: texts.height + 24
    radius: Theme.containerRadius
    color: Theme.faded(Theme.secondary, 0.1)
    border.width: 1
    border.color: Theme.faded(Theme.secondary, 0.22)
    Accessible.role: Accessible.Grouping
    Accessible.name: root.title
    Accessible.description: root.text

    Symbol {
        id: sign
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        name: "lock.fill"
        size: 14
        color: Theme.secondary
    }

    Column {
        id: texts
        anchors.left: sign.right
        anchors.leftMargin: 10
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        CompanionText {
            width: parent.width
            text: root.title
            font: Theme.subheadlineMedium
        }

        CompanionText {
            width: parent.width
            text: root.text
            font: Theme.caption
            color: Theme.secondary
            wrapMode: Text.Wrap
        }
    }
}
