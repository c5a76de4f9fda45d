import QtQuick

/// The ground of cards: a translucent rounded rectangle with a faint outline.
Rectangle {
    id: root

    radius: Theme.cardRadius
    color: Theme.quaternary

    // Over the ground, which a border of its own would take the place of.
    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: "transparent"
        border.width: 1
        border.color: Theme.faded(Theme.quaternary, 0.5)
    }
}
