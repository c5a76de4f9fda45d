import QtQuick
import Nestlet.Companion

/// The top of a folder's detail: its icon beside its name. Files can be dropped on it.
Item {
    id: root

    required property FolderDetailModel folder
    required property DropReceiver receiver
    property string untouchedDraft
    readonly property bool isNameTouched: nameField.text !== root.untouchedDraft
    readonly property bool isDropTargeted: dropTarget.isTargeted

    function showName(name: string) {
        nameField.text = name;
        root.untouchedDraft = nameField.text;
    }
    function resetDraft() {
        root.showName(root.folder.name);
    }
    // A name that nobody touched is not committed: it may have been changed elsewhere meanwhile.
    function commitName() {
        if (root.isNameTouched)
            root.showName(root.folder.commitName(nameField.text));
    }

    height: preview.height
    Component.onCompleted: root.resetDraft()

    Connections {
        target: root.folder
        function onFolderIDChanged() {
            root.resetDraft();
        }
        function onNameChanged() {
            if (!root.isNameTouched)
                root.resetDraft();
        }
    }

    DockIconPreview {
        id: preview
        anchors.left: parent.left
        size: 96
        folderID: root.folder.folderID
        accentColorHex: root.folder.accentColorHex
        iconSymbol: root.folder.iconSymbol
        pictureSource: root.folder.pictureSource
        previewURLs: root.folder.previewURLs
        previewColumns: root.folder.previewColumns
    }

    Column {
        anchors.left: preview.right
        anchors.leftMargin: 20
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        FolderNameField {
            id: nameField
            objectName: "nameField"
            anchors.left: parent.left
            visible: !root.folder.isLocked
            onAccepted: root.commitName()
            onEditingEnded: root.commitName()
            onEditingCancelled: root.resetDraft()
        }

        ElidedText {
            width: parent.width
            visible: root.folder.isLocked
            text: root.folder.name
            font: Theme.titleSemibold
        }

        Row {
            anchors.left: parent.left
            visible: root.folder.isLocked
            spacing: 6

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: 7
                height: 7
                radius: 3.5
                color: Theme.secondary
            }

            CompanionText {
                text: qsTr("App Store Folder")
                font: Theme.captionMedium
                color: Theme.secondary
                Accessible.ignored: false
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }

    FileDropTarget {
        id: dropTarget
        objectName: "headerDropTarget"
        anchors.fill: parent
        anchors.margins: -10
        z: -1
        enabled: !root.folder.isLocked
        folderID: root.folder.folderID
        receiver: root.receiver

        OutlinedRectangle {
            anchors.fill: parent
            radius: Theme.cardRadius
            visible: dropTarget.isTargeted
            color: Theme.faded(Theme.accent, 0.06)
            border.color: Theme.faded(Theme.accent, 0.5)
        }
    }
}
