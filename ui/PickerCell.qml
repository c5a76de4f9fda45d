import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T

/// One cell of a PickerGroup: `text` is its name. It looks as its users make it look.
T.AbstractButton {
    id: root

    required property int index
    required property PickerGroup group
    property bool showsToolTip: false
    readonly property bool isSelected: root.group.selectedCell === root.index

    focusPolicy: root.group.currentCell === root.index ? Qt.StrongFocus : Qt.ClickFocus
    hoverEnabled: true
    Accessible.role: Accessible.RadioButton
    Accessible.name: root.text
    Accessible.checkable: true
    Accessible.checked: root.isSelected
    Accessible.onPressAction: root.click()
    Accessible.onToggleAction: root.click()
    ToolTip.text: root.text
    ToolTip.visible: root.showsToolTip && root.hovered && !root.down
    ToolTip.delay: Theme.toolTipDelay
    Keys.onReturnPressed: root.click()
    Keys.onEnterPressed: root.click()
    onActiveFocusChanged: {
        if (root.activeFocus)
            root.group.currentCell = root.index;
    }
}
