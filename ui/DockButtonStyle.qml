import QtQuick

/// The ground of the prominent buttons that put folders into the Dock: a bordered button.
Rectangle {
    id: root

    property bool isPressed: false
    property bool isHovered: false
    property bool hasFocusRing: false

    radius: Theme.buttonRadius
    color: Theme.control
    border.width: 1
    border.color: Theme.controlBorder

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: Theme.primary
        opacity: root.isPressed ? 0.12 : root.isHovered ? 0.04 : 0
    }

    FocusRing {
        visible: root.hasFocusRing
        controlRadius: root.radius
    }
}
