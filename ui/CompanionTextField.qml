import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// A line of text to be edited, as the window shows it.
T.TextField {
    id: root

    implicitWidth: 200
    implicitHeight: contentHeight + topPadding + bottomPadding
    height: 24
    leftPadding: 8
    rightPadding: 8
    horizontalAlignment: TextInput.AlignLeft // the window's leading edge, whatever the text's script
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    font: Theme.body
    color: Theme.primary
    placeholderTextColor: Theme.secondary
    selectionColor: Theme.accentFill
    selectedTextColor: Theme.accentText
    onActiveFocusChanged: {
        const isByTab = root.focusReason === Qt.TabFocusReason || root.focusReason === Qt.BacktabFocusReason;
        if (root.activeFocus && isByTab)
            root.select(root.length, 0); // backwards: the beginning stays in view
    }

    CompanionText {
        anchors.fill: parent
        anchors.leftMargin: root.leftPadding
        anchors.rightMargin: root.rightPadding
        visible: root.length === 0 && root.preeditText === ""
        text: root.placeholderText
        font: root.font
        color: root.placeholderTextColor
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.field

        FocusRing {
            visible: root.activeFocus
        }
    }
}
