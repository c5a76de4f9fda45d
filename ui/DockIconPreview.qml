import QtQuick

/// What a folder's icon will look like in the Dock. What it shows of the items fades into the next, and
/// so do the folder of an empty one and its first item.
FolderIcon {
    id: root

    // What it showed before the change that is just coming in, property by property.
    property string shownFolderID
    property var shownURLs: []
    property int shownColumns: 1

    function remember() {
        root.shownFolderID = root.folderID;
        root.shownURLs = root.previewURLs;
        root.shownColumns = root.previewColumns;
    }

    radius: size * 0.22
    neutralTop: Theme.isDark ? Theme.grey(0.14) : Theme.grey(0.70)
    neutralBottom: Theme.isDark ? Theme.grey(0.08) : Theme.grey(0.46)
    emptySymbolOpacity: 0.65
    fadeDuration: Theme.changeDuration
    Component.onCompleted: root.remember()
    onFolderIDChanged: {
        fading.complete();
        Qt.callLater(root.remember);
    }
    onPreviewColumnsChanged: Qt.callLater(root.remember)
    onPreviewURLsChanged: {
        const isFirstOrLast = (root.shownURLs.length > 0) !== (root.previewURLs.length > 0);
        const isSeen = root.iconSymbol === "" && root.pictureSource === "";
        if (isFirstOrLast && isSeen && root.shownFolderID === root.folderID && root.fadeDuration > 0)
            former.fade();
        Qt.callLater(root.remember);
    }

    Loader {
        id: former
        objectName: "formerLook"

        property var urls: []
        property int columns: 1

        function fade() {
            former.urls = root.shownURLs;
            former.columns = root.shownColumns;
            former.active = true;
            fading.restart();
        }

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
        from: 1
        to: 0
        duration: root.fadeDuration
        easing.type: Easing.OutQuad
        onFinished: former.active = false
    }
}
