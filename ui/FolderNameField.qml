import QtQuick

/// The name of a folder, to be edited in place.
CompanionTextField {
    id: root

    signal editingEnded
    signal editingCancelled

    width: 180
    height: implicitHeight
    placeholderText: qsTr("Folder name")
    font: Theme.titleSemibold
    placeholderTextColor: Theme.tertiary
    leftPadding: 10
    rightPadding: 10
    topPadding: 5
    bottomPadding: 5
    Accessible.name: qsTr("Folder name")
    onActiveFocusChanged: {
        if (!root.activeFocus)
            root.editingEnded();
    }
    Keys.onEscapePressed: root.editingCancelled()
}
