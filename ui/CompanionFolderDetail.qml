import QtQuick
import Nestlet.Companion

/// The right column for one folder: its name, its place in the Dock, its look and its items.
DetailPane {
    id: root

    readonly property FolderDetailModel folder: root.model.detail
    property alias showAppPicker: appPicker.isWanted
    property alias isConfirmingDelete: removeAlert.isWanted
    readonly property bool contentsDropTargeted: dropTarget.isTargeted || header.isDropTargeted

    hasDialog: root.isConfirmingDelete || root.showAppPicker
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
        receiver: root.model
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
        menuFile: "FolderActionsMenu.qml"
        properties: ({
                "folder": root.folder
            })
        onMade: menu => menu.removeRequested.connect(() => root.isConfirmingDelete = true)
    }

    ScrollArea {
        id: scroll
        objectName: "detailScroll"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: titleRow.bottom
        anchors.bottom: parent.bottom
        contentHeight: sections.height + Theme.contentInset + Theme.contentBottomInset
        onContentYChanged: appearance.follow(scroll)

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
                receiver: root.model
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
                receiver: root.model
                isSurroundingTargeted: root.contentsDropTargeted
                viewportTop: scroll.contentY - items.contentTop
                viewportHeight: scroll.height
                onAddAppsRequested: root.showAppPicker = true
                onRevealRequested: (top, bottom) => scroll.reveal(items.contentTop + top, items.contentTop + bottom)
            }
        }
    }

    DialogLoader {
        id: removeAlert
        dialogFile: "RemoveFolderAlert.qml"
        properties: ({
                "folder": root.folder
            })
    }

    DialogLoader {
        id: appPicker
        dialogFile: "FolderAppPicker.qml"
        properties: ({
                "scan": root.model.applicationScan,
                "folder": root.folder
            })
    }
}
