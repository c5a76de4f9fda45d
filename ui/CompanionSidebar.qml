import QtQuick
import Nestlet.Companion

/// The left column: the commands of the window and the list of all folders.
Rectangle {
    id: root

    required property CompanionViewModel model
    /// What is dragged over the window.
    required property WindowDrag drag
    signal resetRequested

    function focusList() {
        list.forceActiveFocus(Qt.OtherFocusReason);
    }

    color: Theme.sidebar

    Item {
        id: header
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        height: Theme.headerHeight

        CompanionText {
            anchors.left: parent.left
            anchors.leftMargin: Theme.selectionInset + Theme.rowInset
            anchors.right: addButton.left
            anchors.rightMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Dock Folders")
            font: Theme.windowTitle
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Theme.subheadlineSize
            Accessible.ignored: false
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        SymbolButton {
            id: addButton
            objectName: "newFolderButton"
            anchors.right: menuButton.left
            anchors.verticalCenter: parent.verticalCenter
            symbol: "plus"
            text: qsTr("New Dock Folder")
            onClicked: root.model.createFolder()
        }

        SymbolButton {
            id: menuButton
            objectName: "moreButton"
            anchors.right: parent.right
            anchors.rightMargin: Theme.selectionInset
            anchors.verticalCenter: parent.verticalCenter
            symbol: "ellipsis.circle"
            isMenuShown: menuLoader.isShown
            text: qsTr("More")
            onClicked: menuLoader.open()
        }

        MenuLoader {
            id: menuLoader
            button: menuButton
            menuFile: "SidebarMenu.qml"
            properties: ({
                    "model": root.model
                })
            onMade: menu => menu.resetRequested.connect(root.resetRequested)
        }
    }

    FolderList {
        id: list
        objectName: "folderList"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: header.bottom
        anchors.topMargin: -list.ringRoom // the first row's own place is right under the header
        anchors.bottom: progress.top
        companion: root.model
    }

    EdgeScroller { // to rows out of view that files may be dropped on
        readonly property point place: list.mapFromItem(null, root.drag.place)

        flickable: list
        position: root.drag.carriesFiles && list.contains(place) ? place.y : NaN
    }

    FileLoader {
        id: progress
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        file: root.model.addAllTotal > 0 ? "AddAllProgress.qml" : ""
        properties: ({
                "done": root.model.addAllDone,
                "total": root.model.addAllTotal
            })
        height: file === "" ? 0 : implicitHeight
    }

    Divider {
        anchors.right: parent.right
        height: parent.height
    }
}
