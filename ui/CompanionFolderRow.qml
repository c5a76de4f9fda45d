import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// One row of the sidebar. Shows plain values, reports drops upwards.
ItemDelegate {
    id: root

    required property string folderID
    required property string name
    required property string status
    required property bool isLocked
    required property bool isInstalled
    required property bool isSelected
    required property bool listHasFocus
    readonly property bool isDropTargeted: dropTarget.isTargeted
    readonly property string caption: root.isDropTargeted ? qsTr("Drop to add") : root.status
    readonly property bool isEmphasized: root.isSelected && root.listHasFocus
    signal itemsDropped(urls: var)

    height: Theme.rowHeight
    padding: 0
    Accessible.role: Accessible.ListItem
    Accessible.name: root.name
    Accessible.description: root.caption
    Accessible.selectable: true
    Accessible.selected: root.isSelected
    Accessible.onPressAction: root.clicked()

    ToolTip.text: root.name
    ToolTip.visible: root.hovered && nameText.truncated
    ToolTip.delay: Theme.toolTipDelay

    background: Item {
        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: 10
            anchors.rightMargin: 10
            radius: 6
            visible: root.isSelected
            color: root.listHasFocus ? Theme.accent : Theme.quaternary
        }

        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: 10
            anchors.rightMargin: 10
            radius: 6
            color: "transparent"
            border.width: 2
            border.color: Theme.accent
            opacity: root.isDropTargeted ? 1 : 0

            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.hoverDuration
                    easing.type: Easing.OutQuad
                }
            }
        }
    }

    contentItem: Item { // qmllint disable deferred-property-id
        Rectangle {
            id: thumbnail
            anchors.left: parent.left
            anchors.leftMargin: 20
            anchors.verticalCenter: parent.verticalCenter
            width: 36
            height: 36
            radius: 8
            gradient: Gradient {
                GradientStop {
                    position: 0
                    color: Theme.isDark ? Qt.hsla(0, 0, 0.22, 1) : Qt.hsla(0, 0, 0.68, 1)
                }
                GradientStop {
                    position: 1
                    color: Theme.isDark ? Qt.hsla(0, 0, 0.12, 1) : Qt.hsla(0, 0, 0.48, 1)
                }
            }
        }

        Column {
            anchors.left: thumbnail.right
            anchors.leftMargin: 8
            anchors.right: parent.right
            anchors.rightMargin: 18
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            Text {
                id: nameText
                width: parent.width
                text: root.name
                textFormat: Text.PlainText
                font.family: Theme.fontFamily
                font.pixelSize: Theme.bodySize
                font.bold: true
                color: root.isEmphasized ? Theme.accentText : Theme.primary
                elide: Text.ElideRight
                maximumLineCount: 1
                Accessible.ignored: true
            }

            Text {
                width: parent.width
                text: root.caption
                font.family: Theme.fontFamily
                font.pixelSize: Theme.captionSize
                color: root.isEmphasized ? Theme.accentText : root.isDropTargeted
                                           ? Theme.accent : (root.isInstalled && !root.isLocked)
                                             ? Theme.blue : Theme.secondary
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }
    }

    FileDropTarget {
        id: dropTarget
        anchors.fill: parent
        enabled: !root.isLocked
        onDropped: urls => root.itemsDropped(urls)
    }
}
