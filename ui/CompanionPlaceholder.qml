import QtQuick

/// What a column shows when there is nothing to show: a title over a description.
Item {
    id: root

    required property string title
    required property string description

    Accessible.role: Accessible.StaticText
    Accessible.name: root.title
    Accessible.description: root.description

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.contentInset, 420)
        spacing: 8

        Text {
            width: parent.width
            text: root.title
            font.family: Theme.fontFamily
            font.pixelSize: Theme.titleSize
            font.weight: Font.DemiBold
            color: Theme.primary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }

        Text {
            width: parent.width
            text: root.description
            font.family: Theme.fontFamily
            font.pixelSize: Theme.bodySize
            color: Theme.secondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }
}
