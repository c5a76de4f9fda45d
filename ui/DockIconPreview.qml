import QtQuick
import Nestlet.Companion

/// What a folder's icon will look like in the Dock. What it shows of the items fades into the next.
FolderIcon {
    id: root

    // What fades when the items change. Not while the folder becomes another, or what hides the items.
    property bool isSettled: false
    property var shownURLs: []
    property int shownColumns: 1

    function remember() {
        root.isSettled = true;
        root.shownURLs = root.previewURLs;
        root.shownColumns = root.previewColumns;
    }
    /// Keeps what is shown in view, over what comes.
    function hold() {
        if (!root.isSettled || root.hidesItems || Theme.changeDuration === 0)
            return;
        fading.stop();
        former.urls = root.shownURLs;
        former.columns = root.shownColumns;
        former.opacity = 1;
        former.active = true;
    }
    /// What has come is complete.
    function fade() {
        root.remember();
        if (former.active)
            fading.start();
    }
    /// What comes is no change of the items.
    function drop() {
        fading.stop();
        former.active = false;
        root.isSettled = false;
        Qt.callLater(root.remember); // once all of what comes is here
    }

    radius: size * 0.22
    neutralTop: Theme.isDark ? Theme.grey(0.14) : Theme.grey(0.70)
    neutralBottom: Theme.isDark ? Theme.grey(0.08) : Theme.grey(0.46)
    emptySymbolOpacity: 0.65
    onFolderIDChanged: root.drop()
    onHidesItemsChanged: root.drop()
    // From the first item on it is the grid that tells when its icons have come.
    onPreviewURLsChanged: {
        const isEmpty = root.previewURLs.length === 0;
        if (isEmpty !== (root.shownURLs.length === 0))
            root.hold();
        if (isEmpty)
            root.fade();
    }

    Connections {
        target: root.grid
        function onReplaced() {
            root.hold();
            root.fade();
        }
        function onIsLoadedChanged() {
            if (root.grid.isLoaded)
                root.fade();
        }
    }

    Loader {
        id: former
        objectName: "formerLook"

        property var urls: []
        property int columns: 1

        anchors.fill: parent
        active: false

        sourceComponent: FolderIcon {
            folderID: root.folderID
            accentColorHex: root.accentColorHex
            iconSymbol: ""
            pictureSource: ""
            previewURLs: former.urls
            previewColumns: former.columns
            size: root.size
            radius: root.radius
            neutralTop: root.neutralTop
            neutralBottom: root.neutralBottom
            emptySymbolOpacity: root.emptySymbolOpacity
        }
    }

    NumberAnimation {
        id: fading
        target: former
        property: "opacity"
        to: 0
        duration: Theme.changeDuration
        easing.type: Easing.OutQuad
        onFinished: former.active = false
    }
}
