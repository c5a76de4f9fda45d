import QtQuick

/// Where a folder stands with the Dock.
Item {
    id: root

    required property bool isInstalled
    required property bool isLocked
    readonly property string title: root.isLocked ? qsTr("App Store Folder")
                                                  : root.isInstalled ? qsTr("In Dock") : qsTr("Not in Dock")
    readonly property string explanation: root.isLocked
                                          ? qsTr("Read-only. Manage this folder in Nestlet directly.")
                                          : root.isInstalled ? qsTr("Running as its own Dock app.")
                                                             : qsTr("Click \"Show in Dock\" to install.")

    implicitHeight: texts.height
    Accessible.role: Accessible.StaticText
    Accessible.name: root.title
    Accessible.description: root.explanation

    Symbol {
        id: sign
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        name: root.isLocked ? "lock.fill" : root.isInstalled ? "checkmark.circle.fill" : "circle"
        size: 20
        weight: Font.DemiBold
        color: root.isInstalled && !root.isLocked ? Theme.green : Theme.secondary
    }

    Column {
        id: texts
        anchors.left: sign.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        CompanionText {
            width: parent.width
            text: root.title
            font: Theme.headline
        }

        CompanionText {
            width: parent.width
            text: root.explanation
            font: Theme.callout
            color: Theme.secondary
        }
    }
}
