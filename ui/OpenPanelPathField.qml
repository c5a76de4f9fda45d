import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// Shows where an open panel is, and takes any other path.
TextField {
    id: root

    required property string path
    signal entered(path: string)

    text: root.path
    height: 24
    topPadding: 0
    bottomPadding: 0
    leftPadding: 8
    rightPadding: 8
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    font: Theme.body
    color: Theme.primary
    selectionColor: Theme.accentFill
    selectedTextColor: Theme.accentText
    Accessible.name: qsTr("Path")
    onAccepted: root.entered(root.text)
    onPathChanged: root.text = root.path
    onActiveFocusChanged: {
        if (root.activeFocus)
            root.selectAll();
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.field

        FocusRing {
            visible: root.activeFocus
        }
    }
}
