import QtQuick

/// What is said to those who don't see the window, for as long as it takes to be heard. It comes anew
/// each time: what is said twice is heard twice.
Item {
    id: root

    property string text
    readonly property int duration: 5000

    function say(text: string) {
        root.visible = false;
        root.text = text;
        root.visible = true;
        silence.restart();
    }

    width: 1
    height: 1
    visible: false
    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.text

    Timer {
        id: silence
        interval: root.duration
        onTriggered: {
            root.visible = false;
            root.text = "";
        }
    }
}
