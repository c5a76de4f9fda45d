import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Nestlet.Companion

/// The window: strips over the sidebar and the detail of what is selected there, and the dialogs over
/// all of it.
ApplicationWindow {
    id: root

    required property CompanionViewModel model
    /// Null: there is no way to choose a picture, and no colour panel but the window's own.
    property SystemPanels panels: null
    property bool isConfirmingReset: false
    property bool hasStyledToolTip: false
    readonly property CompanionFolderDetail folderDetail: detail.item as CompanionFolderDetail
    readonly property bool hasDialog: root.isConfirmingReset || root.model.errorMessage !== ""
                                      || root.folderDetail !== null && (root.folderDetail.isConfirmingDelete
                                                                        || root.folderDetail.showAppPicker)

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
    palette.toolTipText: Theme.primary
    palette.window: Theme.window
    palette.windowText: Theme.primary
    palette.text: Theme.primary
    palette.highlight: Theme.accentFill
    palette.highlightedText: Theme.accentText

    // All controls share one tooltip, which is there only once a control has asked for it.
    Component {
        id: toolTipGround

        Rectangle {
            radius: 4
            color: Theme.menu
            border.width: 1
            border.color: Theme.menuBorder
        }
    }
    function styleToolTip(toolTip: T.ToolTip) {
        toolTip.font = Theme.subheadline;
        toolTip.background = toolTipGround.createObject(root.contentItem) as Item;
        toolTip.padding = 6;
    }
    Connections {
        target: root
        enabled: !root.hasStyledToolTip
        function onFrameSwapped() {
            root.hasStyledToolTip = true;
            root.styleToolTip(strips.ToolTip.toolTip);
        }
    }

    WindowDrag {
        id: windowDrag
        window: root
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
            onResetRequested: root.isConfirmingReset = true
        }

        Item {
            anchors.left: sidebar.right
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.bottom: parent.bottom

            Loader {
                id: detail
                anchors.fill: parent
                active: root.model.detailKind === CompanionViewModel.Folder

                sourceComponent: CompanionFolderDetail {
                    folder: root.model.detail
                    receiver: root.model
                    drag: windowDrag
                    applicationScan: root.model.applicationScan
                    panels: root.panels
                    onPickImageRequested: folderID => imagePanel.open(folderID)
                }
            }

            Loader {
                anchors.fill: parent
                active: root.model.detailKind === CompanionViewModel.AppStoreFolder

                sourceComponent: MASFolderDetailView {
                    model: root.model
                }
            }

            Loader {
                anchors.fill: parent
                active: root.model.detailKind === CompanionViewModel.Placeholder

                sourceComponent: CompanionPlaceholder {
                    symbol: "folder"
                    title: qsTr("Select a Folder")
                    description: qsTr("Choose a folder from the sidebar or create one with ⌘N.")
                }
            }
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

    Loader {
        active: root.isConfirmingReset

        sourceComponent: AlertPanel {
            objectName: "resetDialog"
            title: qsTr("Reset Companion?")
            message: qsTr("This removes all Companion folders, their Dock icons, and Companion data. The free Nestlet folder is unaffected. This cannot be undone.")
            actionText: qsTr("Reset Everything")
            dismissText: qsTr("Cancel")
            visible: true
            onActed: root.model.resetEverything()
            onClosed: root.isConfirmingReset = false
        }
    }

    // Made for the first error, and kept: it fades away when the error has gone.
    Loader {
        id: errorAlert
        active: false
        Component.onCompleted: active = root.model.errorMessage !== ""

        sourceComponent: ErrorAlert {
            model: root.model
        }
    }

    Connections {
        target: root.model
        enabled: !errorAlert.active
        function onErrorMessageChanged() {
            errorAlert.active = root.model.errorMessage !== "";
        }
    }
}
