import QtQuick

/// Shows where an open panel is, and takes any other path.
CompanionTextField {
    id: root

    required property string path
    signal entered(path: string)

    text: root.path
    Accessible.name: qsTr("Path")
    onAccepted: root.entered(root.text)
    onPathChanged: root.text = root.path
    onActiveFocusChanged: {
        if (root.activeFocus)
            root.selectAll();
    }
}
