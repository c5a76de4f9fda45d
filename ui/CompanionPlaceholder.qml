import QtQuick

/// What a column shows when there is nothing to show: a symbol, and a title over a description.
Item {
    id: root

    required property string symbol
    required property string title
    required property string description

    Accessible.role: Accessible.StaticText
    Accessible.name: root.title
    Accessible.description: root.description

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.contentInset, 420)
        spacing: 8

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: root.symbol
            size: 44
            color: Theme.tertiary
        }

        CompanionText {
            width: parent.width
            text: root.title
            font: Theme.titleSemibold
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            maximumLineCount: 3
        }

        CompanionText {
            width: parent.width
            text: root.description
            color: Theme.secondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
