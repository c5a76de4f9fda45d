import QtQuick
import Nestlet.Companion

/// The right column: the pane of what is selected, or what to do when nothing is.
Item {
    id: root

    required property CompanionViewModel model
    property SystemPanels panels: null
    property WindowDrag drag: null
    readonly property DetailPane pane: loader.item as DetailPane
    readonly property bool hasDialog: root.pane !== null && root.pane.hasDialog
    signal pickImageRequested(folderID: string)

    FileLoader {
        id: loader
        anchors.fill: parent
        file: root.model.detailKind === CompanionViewModel.Folder ? "CompanionFolderDetail.qml"
              : root.model.detailKind === CompanionViewModel.AppStoreFolder ? "MASFolderDetailView.qml" : ""
        properties: ({
                "model": root.model,
                "panels": root.panels,
                "drag": root.drag
            })
        onMade: pane => pane.pickImageRequested.connect(root.pickImageRequested)
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
