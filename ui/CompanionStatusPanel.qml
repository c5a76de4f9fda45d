import QtQuick

/// Whether a folder is in the Dock, in words and with a sign.
Item {
    id: root

    required property bool isInstalled
    required property bool isLocked
    readonly property string title: root.isLocked ? qsTr("App Store Folder") : root.isInstalled
                                                    ? qsTr("In Dock") : qsTr("Not in Dock")
    readonly property string explanation: root.isLocked ? qsTr("Read-only. Manage this folder in Nestlet directly.") : root.isInstalled
                                                          ? qsTr("Running as its own Dock app.") : qsTr("Click \"Show in Dock\" to install.")

    implicitHeight: texts.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: root.title
    Accessible.description: root.explanation

    Rectangle {
        id: sign
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: 20
        height: 20
        radius: 10
        color: root.isInstalled && !root.isLocked ? Theme.green : "transparent"
        border.width: root.isInstalled && !root.isLocked ? 0 : 2
        border.color: Theme.secondary

        Text {
            anchors.centerIn: parent
            visible: root.isInstalled && !root.isLocked
            text: "✓"
            font.family: Theme.fontFamily
            font.pixelSize: 13
            font.bold: true
            color: Theme.content
            Accessible.ignored: true
        }
    }

    Column {
        id: texts
        anchors.left: sign.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Text {
            width: parent.width
            text: root.title
            font.family: Theme.fontFamily
            font.pixelSize: Theme.bodySize
            font.bold: true
            color: Theme.primary
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        Text {
            width: parent.width
            text: root.explanation
            font.family: Theme.fontFamily
            font.pixelSize: Theme.calloutSize
            color: Theme.secondary
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
