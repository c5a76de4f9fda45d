import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// A line of text to be edited, as the window shows it.
TextField {
    id: root

    height: 24
    topPadding: 0
    bottomPadding: 0
    leftPadding: 8
    rightPadding: 8
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    font: Theme.body
    color: Theme.primary
    placeholderTextColor: Theme.secondary
    selectionColor: Theme.accentFill
    selectedTextColor: Theme.accentText

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.field

        FocusRing {
            visible: root.activeFocus
        }
    }
}
