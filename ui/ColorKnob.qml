import QtQuick

/// The knob of a colour field or strip, in the colour it stands on.
Rectangle {
    id: root

    property bool hasFocus: false

    width: 16
    height: 16
    radius: 8
    border.width: 2
    border.color: Theme.accentText

    Rectangle {
        anchors.fill: parent
        anchors.margins: -1
        radius: 9
        color: "transparent"
        border.width: 1
        border.color: Theme.shadow
    }

    FocusRing {
        visible: root.hasFocus
        controlRadius: 8
    }
}
