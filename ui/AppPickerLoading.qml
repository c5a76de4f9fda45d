import QtQuick
import Nestlet.Companion

/// What the picker shows while the applications are looked for. The spokes turn only while it shows.
Column {
    id: root

    property string text

    spacing: 12
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    ProgressSpinner {
        anchors.horizontalCenter: parent.horizontalCenter
        size: 28
    }
    CompanionText {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.text
        color: Theme.secondary
    }
}
