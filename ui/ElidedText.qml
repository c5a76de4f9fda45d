import QtQuick
import Nestlet.Companion

/// A line of text that says all of it in a tooltip where it has not enough room.
CompanionText {
    id: root

    HelpTag.text: root.text
    HelpTag.isShown: hover.hovered && root.truncated && root.visible

    HoverHandler {
        id: hover
    }
}
