import QtQuick

/// A folder's icon in the sidebar, with a badge when the folder is locked.
FolderIcon {
    id: root

    required property bool isLocked

    neutralTop: Theme.isDark ? Theme.grey(0.22) : Theme.grey(0.68)
    neutralBottom: Theme.isDark ? Theme.grey(0.12) : Theme.grey(0.48)

    Loader {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: -3
        active: root.isLocked

        sourceComponent: Rectangle {
            width: 16
            height: 16
            radius: 8
            color: Theme.badge

            Symbol {
                anchors.centerIn: parent
                name: "lock.fill"
                size: 8
                color: Theme.onIcon
            }
        }
    }
}
