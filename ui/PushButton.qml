import QtQuick
import QtQuick.Controls.Basic

/// A push button, 24 high. The default one is filled with the accent; a destructive one is red.
Button {
    id: root

    property bool isDefault: false
    property bool isDestructive: false
    readonly property color tint: root.isDestructive ? Theme.red : Theme.accent

    implicitHeight: 24
    leftPadding: 12
    rightPadding: 12
    topPadding: 0
    bottomPadding: 0
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    font.family: Theme.fontFamily
    font.pixelSize: Theme.bodySize
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    contentItem: Text {
        text: root.text
        font: root.font
        color: root.isDefault ? Theme.accentText : root.isDestructive ? Theme.red : Theme.primary
        opacity: root.enabled ? 1 : 0.4
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: root.isDefault ? root.tint : Theme.control
        border.width: root.isDefault ? 0 : 1
        border.color: Theme.separator

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.primary
            opacity: root.down ? 0.12 : root.hovered ? 0.04 : 0
        }

        FocusRing {
            visible: root.visualFocus
        }
    }
}
