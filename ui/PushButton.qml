import QtQuick
import Nestlet.Companion

/// A push button. The default one is filled with the accent; a destructive one is red.
PlainButton {
    id: root

    property bool isDefault: false
    property bool isDestructive: false
    property bool isLarge: false
    /// In front of the text; empty: none.
    property string symbol
    readonly property color ink: root.isDefault ? Theme.accentText : root.isDestructive ? Theme.destructiveInk
                                                                                        : Theme.primary

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: root.isLarge ? 32 : 24
    leftPadding: root.isLarge ? 16 : 12
    rightPadding: root.leftPadding
    topPadding: 0
    bottomPadding: 0
    font: Theme.body

    contentItem: Item { // qmllint disable deferred-property-id
        implicitWidth: label.implicitWidth + (sign.active ? sign.width + row.spacing : 0)
        opacity: root.enabled ? 1 : 0.4

        Row {
            id: row
            anchors.centerIn: parent
            spacing: 6

            Loader {
                id: sign
                anchors.verticalCenter: parent.verticalCenter
                active: root.symbol !== ""
                visible: root.symbol !== ""

                sourceComponent: Symbol {
                    name: root.symbol
                    size: 13
                    color: root.ink
                }
            }

            CompanionText {
                id: label
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, root.availableWidth - (sign.active ? sign.width + row.spacing : 0))
                text: root.text
                font: root.font
                color: root.ink
            }
        }
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: root.isDefault ? (root.isDestructive ? Theme.redFill : Theme.accentFill)
                              : root.isDestructive ? Theme.destructiveControl : Theme.control
        border.width: root.isDefault ? 0 : 1
        border.color: Theme.controlBorder
        opacity: root.enabled ? 1 : 0.5

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.primary
            opacity: root.down ? 0.12 : root.hovered ? 0.04 : 0
        }

        FocusRing {
            visible: root.showsFocus
        }
    }
}
