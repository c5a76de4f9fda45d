import QtQuick
import Nestlet.Companion

/// What a slider for one part of a colour is to the keyboard and to assistive programs. It draws
/// nothing itself.
Item {
    id: root

    required property string name
    /// What it stands at.
    required property real shown
    /// The same; assistive programs write here what they want.
    property real value: root.shown
    property real minimumValue: 0
    property real maximumValue: 100
    property real stepSize: 1
    readonly property bool visualFocus: root.activeFocus && InputModality.isKeyboard
    signal wanted(value: real)
    /// An arrow key: to the right and upwards.
    signal stepped(right: real, up: real)

    Accessible.role: Accessible.Slider
    Accessible.name: root.name
    Accessible.focusable: true
    onValueChanged: {
        if (root.value === root.shown)
            return;
        const value = root.value;
        root.value = Qt.binding(() => root.shown);
        root.wanted(value);
    }
    Keys.onPressed: event => {
        const step = event.modifiers & Qt.ShiftModifier ? 10 * root.stepSize : root.stepSize;
        event.accepted = true;
        if (event.key === Qt.Key_Left)
            root.stepped(-step, 0);
        else if (event.key === Qt.Key_Right)
            root.stepped(step, 0);
        else if (event.key === Qt.Key_Down)
            root.stepped(0, -step);
        else if (event.key === Qt.Key_Up)
            root.stepped(0, step);
        else
            event.accepted = false;
    }
}
