import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// The window: strips over the sidebar and the detail of what is selected there, and the dialogs over
/// all of it.
T.ApplicationWindow {
    id: root

    required property CompanionViewModel model
    /// Null: there is no way to choose a picture, and no colour panel but the window's own.
    property SystemPanels panels: null
    property alias isConfirmingReset: resetAlert.isWanted
    readonly property bool hasDialog: root.isConfirmingReset || root.model.errorMessage !== "" || detail.hasDialog

    title: qsTr("Nestlet Companion")
    width: 1060
    height: 800
    minimumWidth: 1060
    minimumHeight: 800
    visible: true
    color: (root.background as CompanionWindowBackground).color
    background: CompanionWindowBackground {}
    font: Theme.body
    LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft // qmllint disable unqualified
    LayoutMirroring.childrenInherit: true

    WindowDrag {
        id: windowDrag
        window: root
        isBlocked: root.hasDialog
    }

    WindowCommands {
        isBlocked: root.hasDialog
        onNewFolderRequested: root.model.createFolder()
        onCloseRequested: root.close()
    }

    Announcement {
        id: announcement
        objectName: "announcement"
    }

    Connections {
        target: root.model
        function onAnnounced(text: string) {
            announcement.say(text);
        }
    }

    WindowStrips {
        id: strips
        anchors.left: parent.left
        anchors.right: parent.right
        model: root.model
        onFocusLost: sidebar.focusList()
    }

    Item {
        id: columns
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: strips.bottom
        anchors.bottom: parent.bottom

        CompanionSidebar {
            id: sidebar
            anchors.left: parent.left
            anchors.top: parent.top
            anchors.bottom: parent.bottom
            width: Theme.sidebarWidth
            model: root.model
            drag: windowDrag
            onResetRequested: root.isConfirmingReset = true
        }

        DetailColumn {
            id: detail
            anchors.left: sidebar.right
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.bottom: parent.bottom
            model: root.model
            panels: root.panels
            drag: windowDrag
            onPickImageRequested: folderID => imagePanel.open(folderID)
        }

        SidebarHandle {
            sidebar: sidebar
            anchors.horizontalCenter: sidebar.right
            anchors.top: parent.top
            anchors.bottom: parent.bottom
        }
    }

    // Not in the detail, which may show another folder, or none, before a picture is chosen.
    IconImagePanel {
        id: imagePanel
        panels: root.panels
        onChosen: (url, folderID) => root.model.detail.loadCustomImage(url, folderID)
    }

    DialogLoader {
        id: resetAlert
        dialogFile: "ResetAlert.qml"
        properties: ({
                "model": root.model
            })
    }

    // Made for the first error, and kept: it fades away when the error has gone.
    FileLoader {
        property bool hadError: false
        readonly property bool hasError: root.model.errorMessage !== ""

        file: hadError ? "ErrorAlert.qml" : ""
        properties: ({
                "model": root.model
            })
        onHasErrorChanged: hadError = true
        Component.onCompleted: hadError = hasError
    }
}
