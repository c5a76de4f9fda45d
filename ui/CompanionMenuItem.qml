import QtQuick
import QtQuick.Templates as T

/// One entry of a CompanionMenu, with a symbol before its text.
T.MenuItem {
    id: root

    property bool isDestructive: false
    property string symbol
    readonly property color ink: root.highlighted ? Theme.accentText : root.isDestructive ? Theme.redInk
                                                                                          : Theme.primary

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 24
    leftPadding: 10
    rightPadding: 10
    topPadding: 0
    bottomPadding: 0
    font: Theme.body
    Accessible.role: Accessible.MenuItem
    Accessible.name: root.text
    Accessible.onPressAction: {
        if (root.enabled)
            root.clicked();
    }

    contentItem: Item { // qmllint disable deferred-property-id
        implicitWidth: 24 + label.implicitWidth
        opacity: root.enabled ? 1 : 0.4

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            anchors.horizontalCenter: parent.left
            anchors.horizontalCenterOffset: 8
            name: root.symbol
            size: 13
            color: root.ink
        }

        CompanionText {
            id: label
            anchors.left: parent.left
            anchors.leftMargin: 24
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            font: root.font
            color: root.ink
        }
    }

    background: Rectangle {
        radius: 5
        color: root.highlighted ? Theme.accentFill : "transparent"
    }
}
