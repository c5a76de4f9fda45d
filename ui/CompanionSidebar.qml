pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// The left column: the commands of the window and the list of all folders.
Rectangle {
    id: root

    required property CompanionViewModel model
    signal resetRequested

    color: Theme.sidebar

    Item {
        id: header
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        height: Theme.headerHeight

        Text {
            anchors.left: parent.left
            anchors.leftMargin: 20
            anchors.right: addButton.left
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Dock Folders")
            font.family: Theme.fontFamily
            font.pixelSize: Theme.bodySize
            font.bold: true
            color: Theme.primary
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        SymbolButton {
            id: addButton
            objectName: "newFolderButton"
            anchors.right: menuButton.left
            anchors.verticalCenter: parent.verticalCenter
            symbol: "+"
            text: qsTr("New Dock Folder")
            onClicked: root.model.createFolder()
        }

        SymbolButton {
            id: menuButton
            objectName: "moreButton"
            anchors.right: parent.right
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            symbol: "⋯"
            isMenuShown: menu.visible
            text: qsTr("More")
            onClicked: menu.popup(menuButton, 0, menuButton.height + 2)

            CompanionMenu {
                id: menu

                CompanionMenuItem {
                    text: qsTr("Add All to Dock")
                    onTriggered: root.model.addAllToDock()
                }
                MenuSeparator {}
                CompanionMenuItem {
                    text: qsTr("Reset Companion…")
                    isDestructive: true
                    onTriggered: root.resetRequested()
                }
            }
        }
    }

    ListView {
        id: list
        objectName: "folderList"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        clip: true
        focus: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        model: root.model.folders
        keyNavigationEnabled: true
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Dock Folders")
        ScrollBar.vertical: ScrollBar {}

        // The selection is the model's: the list only shows it and asks for another.
        readonly property int selectedRow: root.model.folders.rowOf(root.model.selection)
        onSelectedRowChanged: list.currentIndex = list.selectedRow
        onCountChanged: list.currentIndex = root.model.folders.rowOf(root.model.selection)
        Keys.onUpPressed: list.selectRow(list.currentIndex - 1)
        Keys.onDownPressed: list.selectRow(list.currentIndex + 1)

        function selectRow(row: int) {
            if (row < 0 || row >= list.count)
                return;
            root.model.selection = root.model.folders.folderIDAt(row);
            list.positionViewAtIndex(row, ListView.Contain);
        }

        delegate: CompanionFolderRow {
            width: ListView.view.width
            isSelected: folderID === root.model.selection
            listHasFocus: list.activeFocus
            onClicked: {
                list.forceActiveFocus(Qt.MouseFocusReason);
                root.model.selection = folderID;
            }
            onItemsDropped: urls => root.model.addItems(folderID, urls)
        }
    }

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.separator
    }
}
