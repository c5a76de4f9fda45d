import QtQuick
import Nestlet.Companion

/// One row of the sidebar. Shows plain values, reports drops upwards.
Item {
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
    /// Kept by the list for another folder. It may still be where it was last seen.
    property bool isPooled: false
    /// How far from its place it is seen, while it slides there.
    property real shift: 0
    /// It comes out of the hand, above others.
    property bool isLanding: false
    readonly property bool isDropTargeted: dropTarget.isTargeted
    readonly property string caption: root.isDropTargeted ? qsTr("Drop to add") : root.status
    // Nothing in the accent shows on the accent: what is dropped on a selected row needs another ground.
    readonly property bool isEmphasized: root.isSelected && root.listHasFocus && root.targeting === 0
    readonly property alias hovered: mouse.containsMouse
    readonly property real textWidth: root.width - (Theme.selectionInset + Theme.rowInset + thumbnail.size + 8)
                                      - (Theme.selectionInset + 4)
    readonly property color restingInk: root.isInstalled && !root.isLocked ? Theme.blueInk : Theme.secondary
    // How far the look of a drop target is, which nothing else fades along with: not what another folder
    // or another selection brings.
    property real targeting: root.isDropTargeted ? 1 : 0
    signal pressed
    signal clicked
    /// By how many rows, as assistive programs ask for it.
    signal moveRequested(step: int)

    height: Theme.rowHeight
    visible: !root.isPooled
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

    HelpTag.text: root.name
    HelpTag.isShown: root.hovered && nameText.truncated && !mouse.pressed

    // Only what is seen slides: pointers and assistive programs find the row at its place.
    Item {
        y: root.shift
        width: root.width
        height: root.height

        Rectangle {
            objectName: "ground"
            anchors.fill: parent
            anchors.leftMargin: Theme.selectionInset
            anchors.rightMargin: Theme.selectionInset
            radius: Theme.buttonRadius
            color: root.isSelected ? (root.isEmphasized ? Theme.accentFill : Theme.selectedRow)
                                   : root.isLanding ? Theme.menu : "transparent"
            border.width: root.targeting > 0 ? 2 : 0
            border.color: Theme.faded(Theme.accent, root.targeting)
        }

        Loader {
            anchors.fill: parent
            anchors.leftMargin: Theme.selectionInset
            anchors.rightMargin: Theme.selectionInset
            active: root.isCurrent && InputModality.isKeyboard

            sourceComponent: Item {
                FocusRing {}
            }
        }

        SidebarFolderThumbnail {
            id: thumbnail
            anchors.left: parent.left
            anchors.leftMargin: Theme.selectionInset + Theme.rowInset
            anchors.verticalCenter: parent.verticalCenter
            size: FolderIconMetrics.sidebarSize
            radius: FolderIconMetrics.sidebarRadius
            folderID: root.folderID
            accentColorHex: root.accentColorHex
            iconSymbol: root.iconSymbol
            pictureSource: root.pictureSource
            previewURLs: root.previewURLs
            previewColumns: root.previewColumns
            isLocked: root.isLocked
        }

        // A width that is there at once: a text is laid out anew for each that it is given.
        CompanionText {
            id: nameText
            anchors.left: thumbnail.right
            anchors.leftMargin: 8
            y: Math.floor((root.height - nameText.height - 2 - captionText.height) / 2)
            width: root.textWidth
            text: root.name
            font: Theme.headline
            color: root.isEmphasized ? Theme.accentText : Theme.primary
        }

        CompanionText {
            id: captionText
            objectName: "caption"
            anchors.left: nameText.left
            anchors.top: nameText.bottom
            anchors.topMargin: 2
            width: root.textWidth
            text: root.caption
            font: Theme.caption
            wrapMode: Text.Wrap
            maximumLineCount: 2
            color: root.isEmphasized ? Theme.accentText : root.targeting === 0 ? root.restingInk
                                     : Qt.tint(root.restingInk, Theme.faded(Theme.accentInk, root.targeting))
        }
    }

    MouseArea {
        id: mouse
        anchors.fill: parent
        hoverEnabled: true
        onPressed: root.pressed()
        onClicked: root.clicked()
    }

    FileDropTarget {
        id: dropTarget
        anchors.fill: parent
        enabled: !root.isLocked && !root.isPooled
        folderID: root.folderID
        receiver: root.receiver
    }
}
