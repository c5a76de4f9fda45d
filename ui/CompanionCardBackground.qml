import QtQuick

/// The ground of cards: a translucent rounded rectangle with a faint outline.
Rectangle {
    radius: Theme.cardRadius
    color: Theme.card
    border.width: 1
    border.color: Theme.faded(Theme.quaternary, Theme.quaternary.a * 0.5)
}
