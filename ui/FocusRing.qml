import QtQuick

/// The ring around a control that the keyboard has reached.
Rectangle {
    id: root

    property real controlRadius: Theme.buttonRadius

    anchors.fill: parent
    anchors.margins: -3
    radius: root.controlRadius + 3
    color: "transparent"
    border.width: 3
    border.color: Theme.faded(Theme.accent, 0.5)
}
