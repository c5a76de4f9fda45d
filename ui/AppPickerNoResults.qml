import QtQuick
import Nestlet.Companion

/// What the picker shows when the search finds nothing.
Item {
    id: root

    property string title

    Accessible.role: Accessible.StaticText
    Accessible.name: root.title
    Accessible.description: hint.text

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.contentInset, 420)
        spacing: 8

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "magnifyingglass"
            size: 36
            color: Theme.secondary
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
            id: hint
            width: parent.width
            text: qsTr("Check the spelling or try a new search.")
            color: Theme.secondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
