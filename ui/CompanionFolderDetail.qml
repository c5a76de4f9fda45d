pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// The right column for one folder: its name, its place in the Dock and its items.
Item {
    id: root

    required property FolderDetailModel folder
    property string untouchedDraft
    readonly property bool isNameTouched: nameField.text !== root.untouchedDraft
    signal removeRequested

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
            root.resetDraft();
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

    Item {
        id: header
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        height: Theme.headerHeight

        Text {
            anchors.left: parent.left
            anchors.leftMargin: Theme.contentInset
            anchors.right: actionsButton.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            text: root.folder.name
            textFormat: Text.PlainText
            font.family: Theme.fontFamily
            font.pixelSize: 15
            font.bold: true
            color: Theme.primary
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
            Accessible.name: root.folder.name
        }

        SymbolButton {
            id: actionsButton
            objectName: "folderActionsButton"
            anchors.right: parent.right
            anchors.rightMargin: 20
            anchors.verticalCenter: parent.verticalCenter
            symbol: "⋯"
            isMenuShown: menu.visible
            text: qsTr("Folder Actions")
            onClicked: menu.popup(actionsButton, actionsButton.width - menu.width,
                                  actionsButton.height + 2)

            CompanionMenu {
                id: menu

                CompanionMenuItem {
                    text: qsTr("Reveal in Finder")
                    enabled: root.folder.isInstalled
                    onTriggered: root.folder.revealInFinder()
                }
                MenuSeparator {}
                CompanionMenuItem {
                    text: qsTr("Remove Folder")
                    isDestructive: true
                    enabled: !root.folder.isLocked
                    onTriggered: root.removeRequested()
                }
            }
        }

        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: 1
            color: Theme.separator
        }
    }

    Item {
        id: content
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        anchors.leftMargin: Theme.contentInset
        anchors.rightMargin: Theme.contentInset
        anchors.topMargin: Theme.contentInset

        TextField {
            id: nameField
            objectName: "nameField"
            anchors.left: parent.left
            anchors.top: parent.top
            width: 320
            placeholderText: qsTr("Folder name")
            readOnly: root.folder.isLocked
            selectByMouse: true
            font.family: Theme.fontFamily
            font.pixelSize: Theme.titleSize
            font.weight: Font.DemiBold
            color: Theme.primary
            placeholderTextColor: Theme.tertiary
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentText
            leftPadding: 10
            rightPadding: 10
            Accessible.name: qsTr("Folder name")
            onAccepted: root.commitName()
            onActiveFocusChanged: {
                if (!nameField.activeFocus)
                    root.commitName();
            }
            Keys.onEscapePressed: root.resetDraft()

            background: Rectangle {
                radius: Theme.buttonRadius
                color: Theme.faded(Theme.secondary, 0.1)

                FocusRing {
                    visible: nameField.activeFocus
                }
            }
        }

        Rectangle {
            id: statusCard
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: nameField.bottom
            anchors.topMargin: Theme.sectionSpacing
            height: 72
            radius: Theme.cardRadius
            color: Theme.quaternary
            border.width: 1
            border.color: Theme.faded(Theme.quaternary, 0.05)

            CompanionStatusPanel {
                anchors.left: parent.left
                anchors.leftMargin: 16
                anchors.right: dockButton.left
                anchors.rightMargin: 16
                anchors.verticalCenter: parent.verticalCenter
                isInstalled: root.folder.isInstalled
                isLocked: root.folder.isLocked
            }

            DockButton {
                id: dockButton
                objectName: "dockButton"
                anchors.right: parent.right
                anchors.rightMargin: 16
                anchors.verticalCenter: parent.verticalCenter
                visible: !root.folder.isLocked
                isInstalled: root.folder.isInstalled
                isBusy: root.folder.isInstalling
                onClicked: root.folder.showInDock()
            }
        }

        Text {
            id: countText
            anchors.left: parent.left
            anchors.top: statusCard.bottom
            anchors.topMargin: Theme.sectionSpacing
            text: root.folder.itemCount.toLocaleString(Qt.locale(), "f", 0)
            font.family: Theme.fontFamily
            font.pixelSize: Theme.captionSize
            font.weight: Font.Medium
            color: Theme.tertiary
            Accessible.role: Accessible.StaticText
            Accessible.name: qsTr("%n item(s)", "", root.folder.itemCount)
        }

        Rectangle {
            id: itemsArea
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: countText.bottom
            anchors.topMargin: 8
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.contentInset
            radius: 8
            color: dropTarget.isTargeted ? Theme.faded(Theme.accent, 0.08) : Theme.faded(Theme.quaternary, 0.04)
            border.width: 1.5
            border.color: dropTarget.isTargeted ? Theme.faded(Theme.accent, 0.5) : "transparent"

            Column {
                anchors.centerIn: parent
                spacing: 8
                visible: items.count === 0

                Text {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: dropTarget.isTargeted ? qsTr("Release to Add") : qsTr("No items yet")
                    font.family: Theme.fontFamily
                    font.pixelSize: Theme.calloutSize
                    color: dropTarget.isTargeted ? Theme.accent : Theme.secondary
                }

                Text {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: qsTr("Drag apps, folders or files here.")
                    font.family: Theme.fontFamily
                    font.pixelSize: Theme.captionSize
                    color: Theme.secondary
                }
            }

            ListView {
                id: items
                objectName: "itemList"
                anchors.fill: parent
                anchors.margins: 8
                clip: true
                activeFocusOnTab: true
                boundsBehavior: Flickable.StopAtBounds
                model: root.folder.items
                Accessible.role: Accessible.List
                Accessible.name: qsTr("Items")
                ScrollBar.vertical: ScrollBar {}

                delegate: FolderItemRow {
                    width: ListView.view.width
                    isLocked: root.folder.isLocked
                    onRemoveRequested: root.folder.removeItem(itemID)
                }
            }
        }
    }
}
