import QtQuick
import Nestlet.Companion

/// Lets the user choose the picture of an icon: in the system's open panel, or in one of the window's
/// own where the system has none, whose files are read when it is first asked for. Cancelling says
/// nothing.
Item {
    id: root

    /// Null: nothing can be chosen.
    property SystemPanels panels: null
    readonly property Window ownPanel: loader.item as Window // no OpenPanel: naming it would read it
    signal chosen(url: string, folderID: string)

    /// `folderID` comes back with the picture: the panel does not keep the user from going on.
    function open(folderID: string) {
        if (!root.panels)
            return;
        if (root.panels.hasOpenPanel) {
            root.panels.chooseIconImage(folderID);
            return;
        }
        if (root.ownPanel)
            root.ownPanel.close();
        loader.setSource("OpenPanel.qml", {
            "panels": root.panels,
            "folderID": folderID,
            "transientParent": root.Window.window
        });
    }

    visible: false

    Connections {
        target: root.panels
        function onIconImageChosen(url: string, folderID: string) {
            root.chosen(url, folderID);
        }
    }

    Loader {
        id: loader
        onLoaded: root.ownPanel.show()
    }

    Connections {
        target: root.ownPanel
        ignoreUnknownSignals: true
        function onChosen(url: string, folderID: string) {
            root.chosen(url, folderID);
        }
        function onVisibleChanged() {
            if (!root.ownPanel.visible)
                loader.source = "";
        }
    }
}
