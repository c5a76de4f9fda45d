import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// What all buttons have in common, whatever they look like: Return presses them as Space does, once
/// however long it is held, and so do assistive programs.
T.Button {
    id: root

    readonly property bool showsFocus: root.activeFocus && InputModality.isKeyboard

    function pressByKey(event: KeyEvent) {
        if (!event.isAutoRepeat)
            root.clicked();
    }

    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.onPressAction: {
        if (root.enabled)
            root.clicked();
    }
    Keys.onReturnPressed: event => root.pressByKey(event)
    Keys.onEnterPressed: event => root.pressByKey(event)
}
