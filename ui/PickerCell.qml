import QtQuick
import Nestlet.Companion

/// One cell of a PickerGroup: `text` is its name. It looks as its users make it look. An item, no
/// button: a button that can be checked checks itself, while what is selected here is for the folder
/// to say; and a control cannot be given the role of another.
Item {
    id: root

    required property int index
    required property PickerGroup group
    property string text
    property bool showsToolTip: false
    /// Not again after a press, as long as the pointer stays.
    property bool isToolTipDue: false
    readonly property bool isSelected: root.group.selectedCell === root.index
    readonly property bool visualFocus: InputModality.isKeyboard && root.activeFocus
    readonly property alias hovered: mouse.containsMouse
    readonly property bool down: mouse.containsPress
    signal clicked

    /// Once, however long the key is held.
    function pressByKey(event: KeyEvent) {
        if (!event.isAutoRepeat)
            root.clicked();
    }

    activeFocusOnTab: root.group.currentCell === root.index
    Accessible.role: Accessible.RadioButton
    Accessible.name: root.text
    Accessible.checkable: true
    Accessible.checked: root.isSelected
    Accessible.focusable: true
    Accessible.focused: root.activeFocus
    Accessible.onPressAction: root.clicked()
    Accessible.onToggleAction: root.clicked()
    HelpTag.text: root.text
    HelpTag.isShown: root.isToolTipDue && root.hovered
    onHoveredChanged: root.isToolTipDue = root.showsToolTip && root.hovered
    onActiveFocusChanged: {
        if (root.activeFocus)
            root.group.currentCell = root.index;
    }
    Keys.onSpacePressed: event => root.pressByKey(event)
    Keys.onReturnPressed: event => root.pressByKey(event)
    Keys.onEnterPressed: event => root.pressByKey(event)

    MouseArea {
        id: mouse
        anchors.fill: parent
        z: 1
        hoverEnabled: true
        onPressed: {
            root.isToolTipDue = false;
            root.forceActiveFocus(Qt.MouseFocusReason);
        }
        onClicked: root.clicked()
    }
}
