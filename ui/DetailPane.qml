import QtQuick
import Nestlet.Companion

/// What the right column shows for a kind of folder.
Item {
    required property CompanionViewModel model
    /// Null: there is no way to choose a picture, and no colour panel but the window's own.
    property SystemPanels panels: null
    /// What is dragged over the window.
    property WindowDrag drag: null
    /// Something is shown that has to be answered first.
    property bool hasDialog: false
    /// A picture is to be chosen for the folder.
    signal pickImageRequested(folderID: string)

    Accessible.role: Accessible.Pane
}
