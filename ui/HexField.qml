import QtQuick
import Nestlet.Companion

/// The colour as a text. What is no colour is put back, and so is what Escape leaves.
CompanionTextField {
    id: root

    required property ColorComponents components

    function commit() {
        root.components.setHexText(root.text);
        root.putBack();
    }
    function putBack() {
        root.text = Qt.binding(() => root.components.hex);
    }

    text: root.components.hex
    maximumLength: 32
    Accessible.name: qsTr("Hex Color")
    onEditingFinished: root.commit()
    onActiveFocusChanged: {
        if (root.activeFocus)
            root.selectAll();
    }
    Keys.onPressed: event => {
        if (event.matches(StandardKey.Cancel))
            root.putBack();
        event.accepted = false; // the panel closes by it
    }
}
