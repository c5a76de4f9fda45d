import QtQuick
import QtQuick.Controls.Basic

/// One entry of a CompanionMenu.
MenuItem {
    id: root

    property bool isDestructive: false
    readonly property color textColor: root.highlighted ? Theme.accentText : root.isDestructive
                                                          ? Theme.red : Theme.primary

    implicitHeight: 24
    leftPadding: 10
    rightPadding: 10
    topPadding: 0
    bottomPadding: 0
    Accessible.role: Accessible.MenuItem
    Accessible.name: root.text
    font.family: Theme.fontFamily
    font.pixelSize: Theme.bodySize

    contentItem: Text {
        text: root.text
        font: root.font
        color: root.textColor
        opacity: root.enabled ? 1 : 0.4
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    background: Rectangle {
        radius: 5
        color: root.highlighted ? Theme.accent : "transparent"
    }
}
