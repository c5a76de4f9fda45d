import QtQuick
import Nestlet.Companion

/// The right column for one folder: its name, its place in the Dock, its look and its items.
Item {
    id: root

    required property FolderDetailModel folder
    /// Who is told of what is dropped here.
    required property DropReceiver receiver
    /// What is dragged over the window.
    required property WindowDrag drag
    required property ApplicationScan applicationScan
    property SystemPanels panels: null
    property bool showAppPicker: false
    property bool isConfirmingDelete: false
    readonly property bool contentsDropTargeted: dropTarget.isTargeted || header.isDropTargeted
    /// A picture is to be chosen for the folder.
    signal pickImageRequested(folderID: string)

    Accessible.role: Accessible.Pane
    Accessible.name: root.folder.name

    Connections {
        target: root.folder
        function onFolderIDChanged() {
            root.showAppPicker = false;
            root.isConfirmingDelete = false;
            scroll.contentY = 0;
        }
    }

    FileDropTarget {
        id: dropTarget
        objectName: "detailDropTarget"
        anchors.fill: parent
        enabled: !root.folder.isLocked
        folderID: root.folder.folderID
        receiver: root.receiver
    }

    DetailHeader {
        id: titleRow
        anchors.left: parent.left
        anchors.right: parent.right
        title: root.folder.name

        SymbolButton {
            id: actionsButton
            objectName: "folderActionsButton"
            symbol: "ellipsis.circle"
            text: qsTr("Folder Actions")
            isMenuShown: menuLoader.isShown
            onClicked: menuLoader.open()
        }
    }

    MenuLoader {
        id: menuLoader
        button: actionsButton

        sourceComponent: CompanionMenu {
            CompanionMenuItem {
                text: qsTr("Reveal in Finder")
                symbol: "finder"
                enabled: root.folder.isInstalled
                onTriggered: root.folder.revealInFinder()
            }
            CompanionMenuSeparator {}
            CompanionMenuItem {
                text: qsTr("Remove Folder")
                symbol: "trash"
                isDestructive: true
                enabled: !root.folder.isLocked
                onTriggered: root.isConfirmingDelete = true
            }
        }
    }

    ScrollArea {
        id: scroll
        objectName: "detailScroll"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: titleRow.bottom
        anchors.bottom: parent.bottom
        contentHeight: sections.height + Theme.contentInset + Theme.contentBottomInset

        EdgeScroller {
            readonly property point place: scroll.mapFromItem(null, root.drag.place)

            flickable: scroll
            position: items.isAwaitingDrop && root.drag.isOver && scroll.contains(place) ? place.y : NaN
        }

        Column {
            id: sections
            x: Theme.contentInset
            y: Theme.contentInset
            width: scroll.width - 2 * Theme.contentInset
            spacing: Theme.sectionSpacing

            LockedFolderBanner {
                width: parent.width
                visible: root.folder.isLocked
            }

            FolderHeader {
                id: header
                width: parent.width
                folder: root.folder
                receiver: root.receiver
            }

            FolderStatusCard {
                width: parent.width
                folder: root.folder
            }

            CompanionCardBackground {
                width: parent.width
                height: appearance.height + 2 * Theme.cardInset
                visible: !root.folder.isLocked

                AppearanceSection {
                    id: appearance
                    anchors.left: parent.left
                    anchors.right: parent.right
                    anchors.top: parent.top
                    anchors.margins: Theme.cardInset
                    folder: root.folder
                    panels: root.panels
                    onPickImageRequested: root.pickImageRequested(root.folder.folderID)
                }
            }

            FolderItemsSection {
                id: items

                readonly property real contentTop: sections.y + items.y

                width: parent.width
                folder: root.folder
                receiver: root.receiver
                isSurroundingTargeted: root.contentsDropTargeted
                viewportTop: scroll.contentY - items.contentTop
                viewportHeight: scroll.height
                onAddAppsRequested: root.showAppPicker = true
                onRevealRequested: (top, bottom) => scroll.reveal(items.contentTop + top, items.contentTop + bottom)
            }
        }
    }

    Loader {
        active: root.isConfirmingDelete

        sourceComponent: AlertPanel {
            objectName: "removeDialog"
            title: qsTr("Remove Folder")
            message: qsTr("The Dock icon will also be removed.")
            actionText: qsTr("Remove Folder")
            dismissText: qsTr("Cancel")
            visible: true
            onActed: root.folder.removeFolder()
            onClosed: root.isConfirmingDelete = false
        }
    }

    // Its files are read when it is first asked for.
    Loader {
        id: appPicker
    }
    onShowAppPickerChanged: {
        if (root.showAppPicker)
            appPicker.setSource("FolderAppPicker.qml", {
                "scan": root.applicationScan,
                "folder": root.folder
            });
        else
            appPicker.source = "";
    }
    Connections {
        target: appPicker.item
        ignoreUnknownSignals: true
        function onClosed() {
            root.showAppPicker = false;
        }
    }
}
