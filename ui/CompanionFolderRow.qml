import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// One row of the sidebar. Shows plain values, reports drops upwards.
ItemDelegate {
    id: root

    required property int index
    required property string folderID
    required property string name
    required property string status
    required property bool isLocked
    required property bool isInstalled
    required property string accentColorHex
    required property string iconSymbol
    required property string pictureSource
    required property var previewURLs
    required property int previewColumns
    required property bool isSelected
    /// Where the keyboard is.
    required property bool isCurrent
    required property bool listHasFocus
    required property DropReceiver receiver
    property bool isPooled: false
    readonly property bool isDropTargeted: dropTarget.isTargeted
    readonly property string caption: root.isDropTargeted ? qsTr("Drop to add") : root.status
    readonly property bool isEmphasized: root.isSelected && root.listHasFocus
    readonly property color restingInk: root.isInstalled && !root.isLocked ? Theme.blueInk : Theme.secondary
    // How far the look of a drop target is, which nothing else fades along with: not what another folder
    // or another selection brings.
    property real targeting: root.isDropTargeted ? 1 : 0
    /// By how many rows, as assistive programs ask for it.
    signal moveRequested(step: int)

    height: Theme.rowHeight
    padding: 0
    focusPolicy: Qt.NoFocus
    Accessible.ignored: root.isPooled
    Accessible.role: Accessible.ListItem
    Accessible.name: root.name
    Accessible.description: root.caption
    Accessible.selectable: true
    Accessible.selected: root.isSelected
    Accessible.focusable: true
    Accessible.focused: root.isCurrent
    Accessible.onPressAction: root.clicked()
    Accessible.onIncreaseAction: root.moveRequested(1)
    Accessible.onDecreaseAction: root.moveRequested(-1)

    Behavior on targeting {
        enabled: !root.isPooled
        NumberAnimation {
            duration: Theme.hoverDuration
            easing.type: Easing.OutQuad
        }
    }

    ToolTip.text: root.name
    ToolTip.visible: root.hovered && nameText.truncated && !root.down
    ToolTip.delay: Theme.toolTipDelay

    background: Item {
        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: Theme.selectionInset
            anchors.rightMargin: Theme.selectionInset
            radius: Theme.buttonRadius
            color: root.isEmphasized ? Theme.accentFill : Theme.selectedRow
            opacity: root.isSelected ? 1 : 0
        }

        FocusRing {
            anchors.leftMargin: Theme.selectionInset - 3
            anchors.rightMargin: Theme.selectionInset - 3
            visible: root.isCurrent && InputModality.isKeyboard
        }

        Rectangle {
            objectName: "dropOutline"
            anchors.fill: parent
            anchors.leftMargin: Theme.selectionInset
            anchors.rightMargin: Theme.selectionInset
            radius: Theme.buttonRadius
            color: "transparent"
            border.width: 2
            border.color: Theme.accent
            opacity: root.targeting
        }
    }

    contentItem: Item { // qmllint disable deferred-property-id
        SidebarFolderThumbnail {
            id: thumbnail
            anchors.left: parent.left
            anchors.leftMargin: Theme.selectionInset + Theme.rowInset
            anchors.verticalCenter: parent.verticalCenter
            size: 36
            radius: 8
            folderID: root.folderID
            accentColorHex: root.accentColorHex
            iconSymbol: root.iconSymbol
            pictureSource: root.pictureSource
            previewURLs: root.previewURLs
            previewColumns: root.previewColumns
            isLocked: root.isLocked
        }

        Column {
            anchors.left: thumbnail.right
            anchors.leftMargin: 8
            anchors.right: parent.right
            anchors.rightMargin: Theme.selectionInset + 4
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            CompanionText {
                id: nameText
                width: parent.width
                text: root.name
                font: Theme.headline
                color: root.isEmphasized ? Theme.accentText : Theme.primary
            }

            CompanionText {
                objectName: "caption"
                width: parent.width
                text: root.caption
                font: Theme.caption
                wrapMode: Text.Wrap
                maximumLineCount: 2
                color: root.isEmphasized ? Theme.accentText : root.targeting === 0 ? root.restingInk
                                         : Qt.tint(root.restingInk, Theme.faded(Theme.accentInk, root.targeting))
            }
        }
    }

    FileDropTarget {
        id: dropTarget
        anchors.fill: parent
        enabled: !root.isLocked && !root.isPooled
        folderID: root.folderID
        receiver: root.receiver
    }
}
