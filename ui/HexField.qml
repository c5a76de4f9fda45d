import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// The colour as a text. What is no colour is put back.
TextField {
    id: root

    required property ColorComponents components

    function commit() {
        root.components.setHexText(root.text);
        root.text = Qt.binding(() => root.components.hex);
    }

    text: root.components.hex
    height: 24
    topPadding: 0
    bottomPadding: 0
    leftPadding: 8
    rightPadding: 8
    verticalAlignment: TextInput.AlignVCenter
    maximumLength: 32
    selectByMouse: true
    font: Theme.body
    color: Theme.primary
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    Accessible.name: qsTr("Hex Color")
    onEditingFinished: root.commit()
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
