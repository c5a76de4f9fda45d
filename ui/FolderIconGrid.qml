import QtQuick
import Nestlet.Companion

/// The grid of the icons of a folder's items. When they change, the former grid fades into the next.
Item {
    id: root

    required property string folderID
    required property var urls
    required property int columns
    required property real spacing
    /// 0: at once.
    required property int fadeDuration
    // What the grid showed when it was last complete.
    property var shownURLs: []
    property int shownColumns: 1
    // What fades out.
    property var formerURLs: []
    property int formerColumns: 1

    function remember() {
        root.shownURLs = root.urls;
        root.shownColumns = root.columns;
    }
    function fade() {
        if (root.fadeDuration > 0) {
            root.formerURLs = root.shownURLs;
            root.formerColumns = root.shownColumns;
            former.active = true;
            fading.restart();
        }
        root.remember();
    }

    onFolderIDChanged: {
        fading.complete();
        former.active = false;
    }

    Loader {
        id: former
        anchors.fill: parent
        active: false
        opacity: 1 - grid.opacity

        sourceComponent: ItemIconGrid {
            folderID: root.folderID
            urls: root.formerURLs
            rows: root.formerColumns
            columns: root.formerColumns
            spacing: root.spacing
        }
    }

    ItemIconGrid {
        id: grid
        objectName: "currentGrid"
        anchors.fill: parent
        folderID: root.folderID
        urls: root.urls
        rows: root.columns
        columns: root.columns
        spacing: root.spacing
        onReplaced: root.fade()
        onIsLoadedChanged: {
            if (isLoaded)
                root.remember();
        }
    }

    NumberAnimation {
        id: fading
        target: grid
        property: "opacity"
        from: 0
        to: 1
        duration: root.fadeDuration
        easing.type: Easing.OutQuad
        onFinished: former.active = false
    }
}
