import QtQuick
import QtQuick.Controls.Basic

/// The name of a folder, to be edited in place.
TextField {
    id: root

    signal editingEnded
    signal editingCancelled

    width: 180
    placeholderText: qsTr("Folder name")
    selectByMouse: true
    font: Theme.titleSemibold
    color: Theme.primary
    placeholderTextColor: Theme.tertiary
    selectionColor: Theme.accentFill
    selectedTextColor: Theme.accentText
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

    background: Rectangle {
        implicitWidth: 180
        radius: Theme.buttonRadius
        color: Theme.field

        FocusRing {
            visible: root.activeFocus
        }
    }
}
