import QtQuick
import Nestlet.Companion

/// The right column for one folder: its name, its place in the Dock, its look and its items.
Item {
    id: root

    required property FolderDetailModel folder
    required property ApplicationScan applicationScan
    property SystemPanels panels: null
    property string untouchedDraft
    property bool showAppPicker: false
    property bool isConfirmingDelete: false
    readonly property bool contentsDropTargeted: dropTarget.isTargeted || headerDropTarget.isTargeted
    readonly property bool isNameTouched: nameField.text !== root.untouchedDraft

    function showName(name: string) {
        nameField.text = name;
        root.untouchedDraft = nameField.text;
    }
    function resetDraft() {
        root.showName(root.folder.name);
    }
    // A name that nobody touched is not committed: it may have been changed elsewhere meanwhile.
    function commitName() {
        if (root.isNameTouched)
            root.showName(root.folder.commitName(nameField.text));
    }

    Accessible.role: Accessible.Pane
    Accessible.name: root.folder.name
    Component.onCompleted: root.resetDraft()

    Connections {
        target: root.folder
        function onFolderIDChanged() {
            root.showAppPicker = false;
            root.isConfirmingDelete = false;
            root.resetDraft();
            scroll.contentY = 0;
        }
        function onNameChanged() {
            if (!root.isNameTouched)
                root.resetDraft();
        }
    }

    FileDropTarget {
        id: dropTarget
        objectName: "detailDropTarget"
        anchors.fill: parent
        enabled: !root.folder.isLocked
        onDropped: urls => root.folder.addItems(urls)
    }

    DetailHeader {
        id: header
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
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        contentHeight: sections.height + Theme.contentInset + Theme.contentBottomInset

        EdgeScroller {
            id: edges
            flickable: scroll
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

            Item {
                id: headerRow
                width: parent.width
                height: preview.height

                DockIconPreview {
                    id: preview
                    anchors.left: parent.left
                    size: 96
                    folderID: root.folder.folderID
                    accentColorHex: root.folder.accentColorHex
                    iconSymbol: root.folder.iconSymbol
                    pictureSource: root.folder.pictureSource
                    previewURLs: root.folder.previewURLs
                    previewColumns: root.folder.previewColumns
                }

                Column {
                    anchors.left: preview.right
                    anchors.leftMargin: 20
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: 8

                    FolderNameField {
                        id: nameField
                        objectName: "nameField"
                        anchors.left: parent.left
                        visible: !root.folder.isLocked
                        onAccepted: root.commitName()
                        onEditingEnded: root.commitName()
                        onEditingCancelled: root.resetDraft()
                    }

                    CompanionText {
                        width: parent.width
                        visible: root.folder.isLocked
                        text: root.folder.name
                        font: Theme.titleSemibold
                    }

                    Row {
                        anchors.left: parent.left
                        visible: root.folder.isLocked
                        spacing: 6

                        Rectangle {
                            anchors.verticalCenter: parent.verticalCenter
                            width: 7
                            height: 7
                            radius: 3.5
                            color: Theme.secondary
                        }

                        CompanionText {
                            text: qsTr("App Store Folder")
                            font: Theme.captionMedium
                            color: Theme.secondary
                            Accessible.ignored: false
                            Accessible.role: Accessible.StaticText
                            Accessible.name: text
                        }
                    }
                }

                FileDropTarget {
                    id: headerDropTarget
                    objectName: "headerDropTarget"
                    anchors.fill: parent
                    anchors.margins: -10
                    z: -1
                    enabled: !root.folder.isLocked
                    onDropped: urls => root.folder.addItems(urls)

                    Rectangle {
                        anchors.fill: parent
                        radius: Theme.cardRadius
                        visible: headerDropTarget.isTargeted
                        color: Theme.faded(Theme.accent, 0.06)
                        border.width: 1.5
                        border.color: Theme.faded(Theme.accent, 0.5)
                    }
                }
            }

            CompanionCardBackground {
                width: parent.width
                height: 72

                CompanionStatusPanel {
                    anchors.left: parent.left
                    anchors.leftMargin: Theme.cardInset
                    anchors.right: dockButton.visible ? dockButton.left : parent.right
                    anchors.rightMargin: Theme.cardInset
                    anchors.verticalCenter: parent.verticalCenter
                    isInstalled: root.folder.isInstalled
                    isLocked: root.folder.isLocked
                }

                DockButton {
                    id: dockButton
                    objectName: "dockButton"
                    anchors.right: parent.right
                    anchors.rightMargin: Theme.cardInset
                    anchors.verticalCenter: parent.verticalCenter
                    visible: !root.folder.isLocked
                    isInstalled: root.folder.isInstalled
                    isBusy: root.folder.isInstalling
                    onClicked: root.folder.showInDock()
                }
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
                }
            }

            Column {
                id: itemsSection
                width: parent.width
                spacing: 8

                Item {
                    width: parent.width
                    height: 24

                    CompanionText {
                        anchors.left: parent.left
                        anchors.verticalCenter: parent.verticalCenter
                        text: root.folder.itemCount.toLocaleString(Qt.locale(), "f", 0)
                        font: Theme.captionMedium
                        color: Theme.tertiaryText
                        Accessible.ignored: false
                        Accessible.role: Accessible.StaticText
                        Accessible.name: qsTr("%n item(s)", "", root.folder.itemCount)
                    }

                    PushButton {
                        id: addAppsButton
                        objectName: "addAppsButton"
                        anchors.right: parent.right
                        visible: !root.folder.isLocked
                        text: qsTr("Add Apps")
                        symbol: "plus"
                        onClicked: root.showAppPicker = true
                    }
                }

                FolderItemsGrid {
                    id: grid
                    width: parent.width
                    folderID: root.folder.folderID
                    items: root.folder.items
                    isLocked: root.folder.isLocked
                    isSurroundingTargeted: root.contentsDropTargeted
                    readonly property real contentTop: sections.y + itemsSection.y + y
                    viewportTop: scroll.contentY - contentTop
                    viewportHeight: scroll.height
                    onRemoveRequested: itemID => root.folder.removeItem(itemID)
                    onMoveRequested: (itemID, index) => root.folder.moveItem(itemID, index)
                    onAddRequested: urls => root.folder.addItems(urls)
                    onDragMoved: place => edges.position = scroll.mapFromItem(null, place).y
                    onDragEnded: edges.position = NaN
                    onRevealRequested: (top, bottom) => scroll.reveal(grid.contentTop + top, grid.contentTop + bottom)
                }
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

    Loader {
        active: root.showAppPicker

        sourceComponent: AppPickerSheet {
            scan: root.applicationScan
            existingURLs: root.folder.itemURLs
            onAddRequested: urls => root.folder.addItems(urls)
            onClosed: root.showAppPicker = false
        }
    }
}
